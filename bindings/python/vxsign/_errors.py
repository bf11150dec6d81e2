"""What a sign or the library answers in place of success."""

from __future__ import annotations

from . import _raw


class SignError(Exception):
    """A result that is no success: `code` (VX_... in `vxsign.raw`), `text`, and `advice` on what to do, "" for none."""

    def __init__(self, code: int, text: str = "") -> None:
        known, advice = _raw.WORDS.get(code, ("Unknow Error!", ""))
        self.code = code
        self.text = text or known
        self.advice = advice
        super().__init__(f"{self.text} (0x{code:04X}){f': {advice}' if advice else ''}")

    def __reduce__(self) -> tuple[type[SignError], tuple[int, str]]:
        return SignError, (self.code, self.text)


def check(code: int) -> None:
    """Raises for a result other than 0."""
    if code != _raw.VX_OK:
        raise SignError(code)


def done(code: int) -> bool:
    """Whether it is success; raises when the line is down, so that no further question is asked."""
    if code in (_raw.VX_COMMUNICATION, _raw.VX_ABORTED, _raw.VX_LOGIN_WANTED):
        raise SignError(code)
    return code == _raw.VX_OK
