// Package ring doesn't "block".
package ring

import (
	"fmt"
	"net/http"
)

/* A block
   comment with func */
type Ring[T comparable] struct {
	items map[string]T `json:"items"`
	size  uint64
}

const (
	Limit = iota + 0x1F_00
	Ratio = 1.5e-3
	URL   = "http://example.org/*" // link
)

func (r *Ring[T]) Push(ctx context.Context, item T) (n int, err error) {
	defer func() { recover() }()
	ch := make(chan struct{}, 10)
	go func() { ch <- struct{}{} }()
	select {
	case <-ch:
		fmt.Printf("%d\t%q\n", len(r.items), 'x')
	default:
		return 0, nil
	}
	for i, v := range []byte("it's") {
		if v == '\'' || i > 0b1010 {
			continue
		}
		switch any(v).(type) {
		case rune, float64:
			fallthrough
		default:
			goto done
		}
	}
done:
	raw := `raw "text" \n` + "more" /* end */
	var _ interface{} = raw
	return int(imag(2i)), fmt.Errorf("bad: %w", err)
}
