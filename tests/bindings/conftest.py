"""Files that signs show, made by the library."""
import os

import pytest

os.environ.setdefault("TZ", "UTC")


@pytest.fixture
def messages(tmp_path):
    from vxsign import raw

    made = [tmp_path / name for name in ("ONE.NMG", "TWO.NMG")]
    for path in made:
        text = path.stem.encode()
        assert raw.vxShowMsgToNmg(text, len(text), path, 49, 49, 48, 5) == 0
    return made
