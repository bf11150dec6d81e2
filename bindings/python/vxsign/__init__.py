"""Control of LED variable-message signs over UDP, TCP or a serial line.

    from vxsign import Sign

    Sign("udp://192.168.1.50").show("HELLO 42", colour="green")

Sign has the tasks, SignError what a sign answers in place of success, VirtualSign a sign for tests, and `raw` every
function of the library.
"""

from . import _raw as raw
from ._errors import SignError
from ._files import Entry
from ._library import LibraryError
from ._sign import Sign
from ._state import Drive, SignWarning, Status
from ._virtual import VirtualSign

__all__ = ["Drive", "Entry", "LibraryError", "Sign", "SignError", "SignWarning", "Status", "VirtualSign", "raw"]
__version__ = "2.3.10"
