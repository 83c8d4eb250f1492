/* A ring of fixed size,
 * used by the "tail" command.
 */
#include <stdio.h>
#include "ring.h"
#  define RING_SIZE 0x1F4u   // 500 slots

//*****************************************************
// Don't call this before ring_open(), see man/*.3
//*****************************************************

typedef struct ring { char *lines[RING_SIZE]; size_t next; bool wrapped; } ring_t;

static const double scale = 1.5e-3, half = .5f;
static const char *const url = "http://example.org/a"; int after_url;
static const char *glob = "src/*.c", *accept = "*/*";

constexpr int limit = 0b1010'1010; // C23
[[nodiscard]] int ring_push(ring_t *ring, const char *line /* may be "" */)
{
    if (!ring || !line) /* nothing
        to do here */ return -1;
    for (size_t i = 0; i < RING_SIZE; ++i) {
        char quote = '"', tick = '\'', end = '\0', hex = '\x1b';
        printf("%zu: %s\t\"%c\"\n", i, ring->lines[i], quote + tick + end + hex);
    }
    switch (ring->next % 2u) {
    case 0: goto done;
    default: break;
    }
    /**/ ring->next++; /*/ odd, but open */
    // He said "stop
    // it" twice
    int interned = 1; // integer part of 3.5" disks
done:
    return interned ? 0 : 0xFFL;
}
