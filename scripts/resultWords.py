"""The result words of words/resultWords.def and include/vxsign/result.h: number, text and advice of each, by its name."""
import re
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
STRINGS = r'((?:\s*(?:"(?:[^"\\]|\\.)*"|VX_ADVICE_\w+))+)'
WORD = re.compile(rf"^VX_WORD\((\w+),{STRINGS},{STRINGS}\)", re.M)
ADVICE = re.compile(rf"#define (VX_ADVICE_\w+){STRINGS}")


def joined(strings):
    return "".join(re.findall(r'"((?:[^"\\]|\\.)*)"', strings)).replace('\\"', '"')


def literal(text):
    """A text as C, C# and Lua write it."""
    return '"' + text.replace("\\", "\\\\").replace('"', '\\"') + '"'


def result_words():
    text = (ROOT / "words" / "resultWords.def").read_text()
    for name, strings in ADVICE.findall(text):
        text = re.sub(rf"\b{name}\b(?!\s+\")", lambda _: strings, text)
    numbers = dict(re.findall(r"^\s+(VX_\w+) = (0x\w+)", (ROOT / "include" / "vxsign" / "result.h").read_text(), re.M))
    return {name: (int(numbers[name], 16), joined(said), joined(todo)) for name, said, todo in WORD.findall(text)}
