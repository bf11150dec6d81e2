"""Fonts, modes and colours as the sign counts them."""

from __future__ import annotations

import re

COLOURS = {
    "red": (255, 0, 0),
    "green": (0, 255, 0),
    "blue": (0, 0, 255),
    "yellow": (255, 255, 0),
    "amber": (255, 176, 0),
    "orange": (255, 96, 0),
    "magenta": (255, 0, 255),
    "cyan": (0, 255, 255),
    "white": (255, 255, 255),
}


def code(text: str, last: int, what: str) -> int:
    """A code of the sign: a character, or a number from 48 on."""
    if not isinstance(text, str):
        raise TypeError(f"a {what} is a str, not {type(text).__name__}")
    if len(text) == 1 and "0" <= text <= "~":
        return ord(text)
    number = int(text) if re.fullmatch("[0-9]+", text) else 0
    if not 48 <= number <= last:
        raise ValueError(f"'{text}' is no {what}: a character, or a number from 48 to {last}")
    return number


def font(text: str) -> int:
    """A font of the sign."""
    return code(text, 169, "font")


def mode(text: str) -> int:
    """How content comes and goes."""
    return code(text, 255, "mode")


def _true_colour(red: int, green: int, blue: int) -> int:
    return ord("/") | red << 8 | green << 16 | blue << 24


def colour(text: str) -> int:
    """A colour by name, as #RRGGBB, or a code of the sign."""
    if text in COLOURS:
        return _true_colour(*COLOURS[text])
    if isinstance(text, str) and text.startswith("#"):
        if not re.fullmatch("#[0-9A-Fa-f]{6}", text):
            raise ValueError(f"'{text}' is no colour such as #FF8000")
        return _true_colour(*bytes.fromhex(text[1:]))
    if isinstance(text, str) and len(text) > 1 and not text.isdigit():
        raise ValueError(f"'{text}' is no colour: #RRGGBB, a code of the sign, or one of {' '.join(COLOURS)}")
    return code(text, 255, "colour")


def stay(seconds: int) -> int:
    """How long content stays."""
    if not isinstance(seconds, int):
        raise TypeError(f"stay is a whole number of seconds, not {type(seconds).__name__}")
    if not 0 <= seconds <= 9999:
        raise ValueError(f"stay is 0 to 9999 seconds, not {seconds}")
    return seconds
