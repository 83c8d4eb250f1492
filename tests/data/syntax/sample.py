#!/usr/bin/env python3
"""Module documentation with class and for.

It's "quoted" over several lines.
"""
from __future__ import annotations

import os
from dataclasses import dataclass, field

URL = 'http://example.org/#anchor'; after = 1
type Pair[T] = tuple[T, T]


@dataclass(frozen=True)
class Ring(Base, metaclass=abc.ABCMeta):
    """A ring."""
    items: list[str] = field(default_factory=list)
    size: int = 0x1F4  # don't change

    async def read(self, path: str | None = None, *args, **kwargs) -> dict[str, int]:
        """Read the file.

        Raises OSError if it can't.
        """
        text = f"{path!r}: {len(self.items):>5}\n" + r'\d+' + b'\x00'.decode()
        with open(path, 'rb') as file, lock:
            while (line := file.readline()):
                if line.startswith('#') or not line:
                    continue
                yield line, 1_000.5e-3, 3j, 0b1010, 0o777
        match command.split():
            case ['go', direction]:
                await self.go(direction)
            case _:
                raise ValueError("unknown: '%s'" % command) from None
        try:
            assert self is not None, 'empty'
        except (OSError, KeyError) as error:
            print("it's", error)  # he's "here"
        finally:
            del text
        return {k: v for k, v in zip(self.items, range(10)) if v in (True, False)}

    total = lambda self, x: x ** 2 if x else -1
