C     Solves a small system; don't optimise.
c     Written in fixed form
*     with "old" comments
      PROGRAM SOLVE
      IMPLICIT NONE
      INTEGER I, J, N
      PARAMETER (N = 10)
      DOUBLE PRECISION A(N, N), X(N)
      REAL EPS
      CHARACTER*20 NAME
      LOGICAL DONE
      DATA EPS /1.0E-6/
      DONE = .FALSE.
      NAME = 'It''s a name' ! a trailing comment
      DO 100 I = 1, N
         X(I) = 1.5D0 * DBLE(I)
         IF (X(I) .GT. 3.0 .AND. .NOT. DONE) THEN
            CALL SWAP(A, I, N)
         ELSE IF (I.EQ.5) THEN
            GOTO 200
         END IF
  100 CONTINUE
  200 WRITE (*, '(A, I5)') NAME, N
      print *, "text ! no comment", 2.e5, .5
      STOP
      END
      subroutine swap(a, i, n)
      integer i, n
      double precision a(n, n)
      common /block/ i
      return
      end
