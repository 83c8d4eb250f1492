// A header that both languages read; it's guarded.
#ifndef RING_H
#define RING_H
#pragma once
#ifdef __cplusplus
extern "C" {
#endif

/** What the ring holds.
 *  @see http://example.org/ring
 */
typedef struct ring ring;
int ring_push(ring *restrict where, const char *line);
_Static_assert(sizeof(int) >= 4, "int is too short");

#ifdef __cplusplus
} // extern "C"

template<typename T> class Ring final : public Base {
public:
    explicit Ring(std::size_t capacity) noexcept;
    virtual ~Ring() = default;
private:
    std::vector<T> m_items; ///< oldest first
};
#endif
#endif /* RING_H */
