"""The fixture of pytest: a virtual sign for each test that names it."""

from __future__ import annotations

from collections.abc import Iterator
from typing import TYPE_CHECKING

import pytest

if TYPE_CHECKING:
    from . import VirtualSign


@pytest.fixture
def virtual_sign() -> Iterator[VirtualSign]:
    """A vxsim of 128x32 pixels; `virtual_sign.url` is its place."""
    from . import VirtualSign as Virtual

    with Virtual() as sign:
        yield sign
