"""The Python package against a virtual sign, with its own fixture: each task, each sort of error, threads."""
import asyncio
import ctypes
import datetime
import json
import os
import pathlib
import signal
import subprocess
import sys
import threading
import time
from concurrent.futures import ThreadPoolExecutor

import pytest
from vxsign import LibraryError, Sign, SignError, VirtualSign, raw

DEAD = "udp://127.0.0.1:9"
MOMENT = datetime.datetime(2030, 5, 13, 10, 20)


@pytest.fixture
def sign(virtual_sign):
    return Sign(virtual_sign.url)


def message_of(virtual):
    return (virtual.folder / "F" / "T" / "QMSG.Nmg").read_bytes()


def test_layouts_are_those_of_the_compiler():
    for structure, (size, offsets) in raw.LAYOUTS.items():
        assert ctypes.sizeof(structure) == size, structure
        assert {name: getattr(structure, name).offset for name in offsets} == offsets, structure


def test_content_shows(sign, virtual_sign, messages):
    sign.show("HELLO\n42", colour="#FF0000", font="2", mode="0", stay=7)
    assert b"HELLO\r42" in message_of(virtual_sign)
    assert sign.playing().endswith("QMSG.Nmg")
    sign.files(messages, stay=3)
    assert sign.playing().endswith("ONE.NMG")
    picture = virtual_sign.png()
    sign.picture(picture, stay=2)
    assert sign.playing().upper().endswith("FACE.PNG")


def test_files_go_and_come(sign, tmp_path):
    percents = []
    loud = Sign(sign.url, on_progress=percents.append)
    data = bytes(range(256)) * 40
    (tmp_path / "local").write_bytes(data)
    loud.put(tmp_path / "local", "D:\\T\\A.BIN")
    assert percents[-1] == 100 and percents == sorted(percents)
    sign.mkdir("D:\\NEW")
    sign.mv("D:\\T\\A.BIN", "D:\\T\\B.BIN")
    sign.mv("D:\\T\\B.BIN", "D:\\NEW\\B.BIN")
    entry, = sign.ls("D:\\NEW")
    assert (entry.name, entry.is_folder, entry.size) == ("B.BIN", False, len(data))
    assert entry.changed.year >= 2026 and [each.is_folder for each in sign.ls("D:\\") if each.name == "NEW"] == [True]
    sign.get("D:\\NEW\\B.BIN", tmp_path / "back")
    assert (tmp_path / "back").read_bytes() == data
    sign.rm("D:\\NEW\\B.BIN")
    with pytest.raises(SignError) as gone:
        sign.get("D:\\NEW\\B.BIN", tmp_path / "back")
    assert (tmp_path / "back").read_bytes() == data and len(list(tmp_path.iterdir())) == 2
    assert gone.value.code == raw.VX_FILE_NOT_EXISTS and gone.value.text and gone.value.advice


def test_play_lists(sign, messages, tmp_path):
    sign.playlist(messages, stay=9)
    assert sign.playing().endswith("ONE.NMG")
    for action, playing in (("next", "TWO"), ("previous", "ONE"), ("TWO.NMG", "TWO"), ("replay", "ONE")):
        sign.play(action)
        assert sign.playing().endswith(playing + ".NMG"), action
    for action in ("pause", "continue", "again"):
        sign.play(action)
    assert sign.fetch_playlist(tmp_path / "back") == ["ONE.NMG", "TWO.NMG"]
    assert (tmp_path / "back" / "TWO.NMG").read_bytes() == messages[1].read_bytes()
    sign.playlist(messages[1:], index=3)
    assert [each.name for each in sign.ls("C:\\playlist")] == ["sequent3.sys"]


def test_status_is_that_of_the_tool(sign):
    tool = [os.environ["VXCTL"], "--sign", sign.url, "--json", "status"]
    told = json.loads(subprocess.check_output(tool))
    found = sign.status().as_dict()
    for volatile in ("drives", "clock"):
        assert len(found[volatile]) == len(told[volatile])
        del found[volatile], told[volatile]
    assert found == {key: told[key] for key in found}


def test_what_is_set_is_read_back(sign):
    assert sign.ping() == (128, 32, 1)
    assert sign.clock(MOMENT) == MOMENT and sign.clock() == MOMENT
    assert sign.light(5) == 5 and sign.light() == 5
    assert sign.power(False) is False and sign.power() is False
    sign.blank()
    assert sign.restore() == ["off", "blank"] and sign.power() is True
    sign.unblank()
    sign.call(raw.vxBrightAdjustEx, 2, 2)
    assert sign.light() == 2


def test_logs_and_pixels(messages):
    with VirtualSign(options=["--bad", "3,4,red"]) as bad:
        sign = Sign(bad.url)
        sign.files(messages)
        sign.play("next")
        while not (plays := sign.logs("play")):  # the sign writes it now and then
            time.sleep(0.05)
        assert plays[0]["file"].endswith("ONE.NMG") and plays[0]["window"] == 1
        assert [row["operation"] for row in sign.logs("system")][0] == "start" and len(sign.logs("system", 2)) == 2
        assert isinstance(sign.logs("temperature")[0]["outAvgC"], int) and sign.logs("tile")[0]["state"] == "good"
        assert sign.logs("event")[0]["event"] == "pixel"
        for source in ("check", "last"):
            pixel, = sign.pixels(source)
            assert (pixel["x"], pixel["y"], pixel["kind"]) == (3, 4, "pixel")


def test_devices_and_firmware(tmp_path):
    (tmp_path / "firmware").write_bytes(b"F" * 300)
    with VirtualSign(options=["--serial", "--bootloader", "--modbus", "0"]) as virtual:
        devices = Sign("udp://" + virtual.places["modbus"])
        assert devices.modbus("LC", 1, 5, value=77) == 77
        assert devices.modbus("LC", 1, 5) == 77
        Sign("serial:" + virtual.places["serial"]).upgrade(tmp_path / "firmware")


def test_login():
    with VirtualSign(options=["--login", "admin:1234"]) as closed:
        sign = Sign(closed.url)
        with pytest.raises(SignError) as refused:
            sign.login("admin", "wrong")
        assert refused.value.code == raw.VX_WRONG_PASSWORD
        sign.login("admin", "1234")
        sign.show("IN")
        sign.logout()
        with pytest.raises(SignError, match="login"):
            sign.show("OUT")


@pytest.mark.parametrize(
    "fault, words, call",
    [
        (ValueError, "names no sign", lambda sign: Sign("http://127.0.0.1")),
        (ValueError, "no IPv4 address", lambda sign: Sign("udp://300.1.1.1")),
        (ValueError, "1 to 65535", lambda sign: Sign("udp://127.0.0.1:70000")),
        (ValueError, "timeout_ms is 50", lambda sign: Sign(timeout_ms=1)),
        (LookupError, "unknown encoding", lambda sign: Sign(encoding="none")),
        (ValueError, "NUL", lambda sign: sign.show("a\0b")),
        (TypeError, "is a str", lambda sign: sign.show(5)),
        (ValueError, "no colour", lambda sign: sign.show("x", "pinkish")),
        (ValueError, "has no 'ł' .U.0142.", lambda sign: Sign(sign.url, encoding="iso-8859-1").show("Uwaga: mgła")),
        (ValueError, "0 to 9999", lambda sign: sign.show("x", stay=-1)),
        (FileNotFoundError, "none", lambda sign: sign.put("/none", "D:\\A")),
        (TypeError, "list of paths", lambda sign: sign.files("A.NMG")),
        (ValueError, "is no log", lambda sign: sign.logs("none")),
        (ValueError, "no class", lambda sign: sign.modbus("XX", 1, 1)),
        (ValueError, "not within 0 to 255", lambda sign: sign.light(256)),
        (ValueError, "too small", lambda sign: raw.vxGetBeacon(bytearray(7))),
        (TypeError, "cannot be written", lambda sign: raw.vxGetBeacon(b"12345678")),
        (TypeError, "buffer is wanted", lambda sign: raw.vxPlayVoice(1, 2, "text", 4)),
        (SignError, "Communication|Respon|Time", lambda sign: Sign(DEAD, timeout_ms=50, retries=1).ping()),
    ],
)
def test_what_no_sign_gets(fault, words, call):
    # Nothing of this reaches a sign: there is none.
    with pytest.raises(fault, match=words):
        call(Sign(DEAD, timeout_ms=50, retries=1))


def test_encodings(virtual_sign):
    for encoding, text in (("utf-8", "Ünï"), ("gbk", "限速"), ("shift_jis", "速度"), ("windows-1251", "Стоп")):
        Sign(virtual_sign.url, encoding=encoding).show(text)
        assert text.encode(encoding) in message_of(virtual_sign)


def run_python(code, **environment):
    command = [sys.executable, "-c", code]
    return subprocess.run(command, env={**os.environ, **environment}, capture_output=True, text=True)


@pytest.mark.parametrize(
    "library, words", [("/none.so", "/none.so was not found"), ("libm.so.6", "does not tell its version")]
)
def test_libraries_that_do_not_do(library, words):
    code = "import vxsign\ntry:\n    vxsign.Sign().ping()\nexcept vxsign.LibraryError as error:\n    print(error)"
    done = run_python(code, VXSIGN_LIBRARY=library)
    assert words in done.stdout, done.stderr


def test_library_that_is_too_old(monkeypatch):
    from vxsign import _library

    monkeypatch.setattr(_library, "WANTED", (2, 99, 0))
    with pytest.raises(LibraryError, match="is version 2.* 2.99.0 or a later 2 is wanted"):
        _library._check(_library.library(), "old.so")


def test_two_signs_on_a_pool_of_threads(messages):
    with VirtualSign(width=64) as first, VirtualSign(width=96) as second, ThreadPoolExecutor(3) as pool:
        signs = [Sign(first.url), Sign(second.url)]
        jobs = [pool.submit(signs[i % 2].ping) for i in range(200)]
        assert [job.result()[0] for job in jobs] == [64, 96] * 100
        # The properties of a sign go with it: one has a drive F, the other has none.
        with VirtualSign(options=["--drives", "CD"]) as bare:
            both = [Sign(bare.url), signs[0]]
            for i in range(4):
                pool.submit(both[i % 2].files, messages).result()
                assert both[i % 2].playing()[:2] == ("D:", "F:")[i % 2]


def test_asyncio(virtual_sign):
    async def both():
        sign = Sign(virtual_sign.url)
        return await asyncio.gather(asyncio.to_thread(sign.ping), asyncio.to_thread(sign.power))

    assert asyncio.run(both()) == [(128, 32, 1), True]


def test_cancel_from_another_thread(virtual_sign):
    sign = Sign(DEAD, timeout_ms=20000, retries=1)
    threading.Timer(0.2, sign.cancel).start()
    began = time.monotonic()
    with pytest.raises(SignError) as ended:
        sign.ping()
    assert ended.value.code == raw.VX_ABORTED and time.monotonic() - began < 10
    live = Sign(virtual_sign.url)
    live.cancel()
    assert live.ping() == (128, 32, 1)


@pytest.mark.parametrize("isRaising, fault", [(True, ZeroDivisionError), (False, RuntimeError)])
def test_progress_that_raises_or_calls_ends_the_task(sign, tmp_path, isRaising, fault):
    (tmp_path / "local").write_bytes(bytes(100000))
    loud = Sign(sign.url, on_progress=lambda percent: 1 // 0 if isRaising else sign.ping())
    with pytest.raises(fault):
        loud.put(tmp_path / "local", "D:\\T\\A.BIN")
    assert sign.ping() == (128, 32, 1)


def test_a_record_that_the_library_frees(tmp_path):
    info, found = raw.VXPLAYLIST_FILE_INFO(fileName=b"A"), raw.VXPLAYLIST_FILE_INFO()
    assert raw.vxPLInit(tmp_path, b"list.xml") == 0
    for _ in range(3):
        assert raw.vxPLDelItem(b"/", 0, 9) == 0 and raw.vxPLAddFile(b"/", 0, info) == 0
    assert raw.vxPLGetFile(b"/A", found) == 0 and found.fileName == b"A"


EXAMPLES = [
    ("hello.py", ["HELLO 42"], ""),
    ("picture.py", ["{examples}/logo.bmp"], "LOGO.BMP\n"),
    ("file.py", ["{examples}/hello.nmg", "D:\\T\\H.NMG"], "100 %\nOK\n"),
    ("playlist.py", ["{examples}/hello.nmg", "{examples}/night.nmg"], "the sign plays hello.nmg night.nmg\n"),
    ("logs.py", [], ",start,sign,OK\n"),
]


@pytest.mark.parametrize("program, arguments, said", EXAMPLES)
def test_examples(virtual_sign, program, arguments, said):
    examples = pathlib.Path(__file__).parents[2] / "examples"
    given = [argument.format(examples=examples) for argument in arguments]
    command = [sys.executable, examples / "python" / program, virtual_sign.url, *given]
    done = subprocess.run(command, capture_output=True, text=True)
    assert done.returncode == 0 and said.lower() in done.stdout.lower(), done
    assert Sign(virtual_sign.url).playing() or program in ("file.py", "logs.py")


def hear_interrupts():
    """What a shell starts in the background does not."""
    signal.signal(signal.SIGINT, signal.SIG_DFL)


def test_an_example_that_is_interrupted(virtual_sign, tmp_path):
    (tmp_path / "large").write_bytes(bytes(4 << 20))
    example = pathlib.Path(__file__).parents[2] / "examples" / "python" / "file.py"
    command = [sys.executable, example, virtual_sign.url, tmp_path / "large", "D:\\T\\L.BIN"]
    with subprocess.Popen(command, stdout=subprocess.PIPE, text=True, preexec_fn=hear_interrupts) as running:
        running.stdout.read(4)  # the first percentage
        running.send_signal(signal.SIGINT)
        assert running.stdout.read().endswith("\nended\n") and running.wait() == 1
