! Heat equation, one step. It isn't stable for large dt.
module heat_mod
  use, intrinsic :: iso_fortran_env, only: real64
  implicit none
  private
  public :: grid_t, advance

  integer, parameter :: dp = real64
  type, abstract :: grid_t
    real(kind=dp), allocatable, dimension(:,:) :: u
    logical :: ready = .false.
  contains
    procedure, pass(self) :: init => grid_init
    final :: grid_done
  end type grid_t

contains

  pure subroutine advance(self, dt, info)
    class(grid_t), intent(inout) :: self
    real(dp), intent(in) :: dt
    integer, intent(out), optional :: info
    integer :: i, j
    character(len=:), allocatable :: text

    text = "don't ! panic" // 'he said "hi"'  ! a note
    if (dt <= 0.0_dp .or. .not. self%ready) error stop 'bad step'
    do concurrent (i = 2:size(self%u, 1) - 1, j = 1:10)
      self%u(i, j) = self%u(i, j) + 1.5e-3_dp * dt / 4._dp ** 2
    end do
    associate (x => self%u(1, 1))
      write (*, '(a, f8.3)') text, x
    end associate
    SELECT CASE (info)
    CASE (1:5)
      GO TO 10
    CASE DEFAULT
      Return
    END SELECT
10  continue
    i = int(z'FF') + int(b"1010")
  end subroutine advance

end module heat_mod
