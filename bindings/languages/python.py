"""Python: typed calls through ctypes."""
import keyword
import re
import textwrap

from model import NUMBERS

OUTPUT = "bindings/python/vxsign/_raw.py"

HEAD = '''"""Every function and structure of the library, as the headers declare them. Made by bindings/generate.py.

Names, arguments and results are those of C. A pointer to one value takes a number of ctypes (`ctypes.c_uint32()`), a
buffer takes a bytearray, an array of ctypes or, where it is only read, bytes; each is checked for its size. Texts that
the sign sees are bytes in its encoding, paths of this PC are what `open` takes. Results are not looked at: see `Sign`.
"""

from __future__ import annotations

import ctypes
from collections.abc import Sequence
from typing import Any, Optional, Union

from ._convert import Ascii, Buffer, Number, Path, PathText, SignText, behind, given, held, paths, room, writable
from ._library import nothing, number, pointer, text
'''


def ctype(name):
    return {"int": "ctypes.c_int", "char": "ctypes.c_char", "void": "None"}.get(name) or (
        f"ctypes.c_{name[:-2]}" if name in NUMBERS else name)


def structure(each):
    yield f"\n\nclass {each.name}(ctypes.Structure):"
    yield docstring(each.comment or f"{each.size} bytes.")
    if each.isPacked:
        yield "    _pack_ = 1"
    yield "    _fields_ = ["
    for field in each.fields:
        kind = ctype(field.type.name) + (f" * {field.type.length}" if field.type.length else "")
        yield f'        ("{field.name}", {kind}),'
    yield "    ]"


def docstring(text):
    text = text.replace("\\", "\\\\")
    lines = textwrap.wrap(re.sub(r"\s+", " ", text), 113)
    if len(lines) == 1:
        return f'    """{lines[0]}"""'
    return '    """' + "\n    ".join(lines) + '\n    """'


def callback(each):
    types = [callbackType(parameter) for parameter in each.parameters]
    return f"{each.name} = ctypes.CFUNCTYPE({', '.join([ctype(each.result.name), *types])})"


def callbackType(parameter):
    if not parameter.type.pointers:
        return ctype(parameter.type.name)
    if parameter.isText:
        return "ctypes.c_char_p"
    if parameter.type.name in ("void", "vxApiConfig") or parameter.bytes:
        return "ctypes.c_void_p"
    return f"ctypes.POINTER({parameter.type.name})"


def number(name):
    return f"_{name.removesuffix('_t')}"


def size(parameter):
    """The bytes that a pointer leads to, in Python."""
    each = "" if parameter.bytes else f" * ctypes.sizeof({ctype(parameter.type.name)})"
    text = (parameter.bytes or f"({parameter.count})").replace("->", ".")
    return re.sub(r"^(\(?)\*(\w+)", r"\1held(\2)", text) + each


def argument(parameter, isOwned):
    """(name, hint, type for ctypes, expression) of a parameter."""
    name = parameter.name + "_" * keyword.iskeyword(parameter.name)
    hint, argtype, value = plain(parameter, name, isOwned)
    return name, f"Optional[{hint}]" if parameter.isOptional else hint, argtype, value or name


def plain(parameter, name, isOwned):
    kind = parameter.type
    if kind.pointers == 2 and parameter.isPath:
        return "Sequence[PathText]", "ctypes.c_void_p", f"paths({name}, {parameter.count})"
    if kind.pointers == 2:
        return "Buffer", "ctypes.c_void_p", f"behind({name}, {size(parameter)})"
    if isOwned:
        return kind.name, f"ctypes.POINTER({kind.name})", f"given({name})"
    if parameter.bytes or parameter.count:
        return "Buffer", "ctypes.c_void_p", f"{'writable' if parameter.isOut else 'room'}({name}, {size(parameter)})"
    if parameter.isText:
        hint, argtype = ("PathText", "Path") if parameter.isPath else (
            ("bytes", "SignText") if parameter.isSignText else ("Union[str, bytes]", "Ascii"))
        return hint, argtype, ""
    if kind.name in ("void", "FILE"):
        return "int", "ctypes.c_void_p", ""
    if kind.pointers:
        return ctype(kind.name), f"ctypes.POINTER({ctype(kind.name)})", ""
    if kind.name in NUMBERS:
        return "int", number(kind.name), ""
    return ("Union[bytes, int]", "ctypes.c_char", "") if kind.name == "char" else (
        "Any" if kind.name.startswith("vxOn") else kind.name, kind.name, "")


def result(kind):
    """(hint, type for ctypes, how it is bound)"""
    if kind.pointers:
        return ("bytes", "ctypes.c_char_p", "text") if kind.name == "char" else (
            "Optional[int]", "ctypes.c_void_p", "pointer")
    return ("None", "None", "nothing") if kind.name == "void" else ("int", ctype(kind.name), "number")


# Functions that free a record of the caller's: their headers say so.
OWNED = {("vxPLAddFile", "info")}


def function(each):
    arguments = [argument(parameter, (each.name, parameter.name) in OWNED) for parameter in each.parameters]
    taken = [f"{name}: {hint}" for name, hint, _, _ in arguments] + ["*more: Any"] * each.isVariadic
    passed = [value for _, _, _, value in arguments] + ["*more"] * each.isVariadic
    hint, returned, how = result(each.result)
    types = [quoted(each.name), returned, *(argtype for _, _, argtype, _ in arguments)]
    call = f"{how}({', '.join(types)})({', '.join(passed)})"
    if len(call) > 100:
        call = wrapped(f"{how}(", types, ")", "    ") + wrapped("(", passed, ")", "    ")
    yield f"\n\n{wrapped(f'def {each.name}(', taken, f') -> {hint}:')}"
    yield docstring(each.comment)
    yield f"    {'return ' * (hint != 'None')}{call}"


def quoted(text):
    return f'"{text}"'


def wrapped(head, parts, tail, indent=""):
    line = head + ", ".join(parts) + tail
    if len(line) + len(indent) <= 110:
        return line
    inner = textwrap.fill(", ".join(parts), 112 - len(indent), break_long_words=False, break_on_hyphens=False)
    return f"{head}\n{textwrap.indent(inner, indent + '    ')}\n{indent}{tail}"


def write(model):
    names = [number(name) for name in NUMBERS]
    lines = [HEAD]
    lines += [f"{name} = Number({ctype(plain)})" for name, plain in zip(names, NUMBERS)]
    lines += ["", *(f"{name} = {value}" for name, value in model.constants.items())]
    late = [each for each in model.structures if any(field.type.name.startswith("vxOn") for field in each.fields)]
    for each in (each for each in model.structures if each not in late):
        lines += structure(each)
    lines += ["\n", *(callback(each) for each in model.callbacks)]
    for each in late:
        lines += structure(each)
    lines.append("\n\n# {structure: (bytes, {field: offset})} as the compiler has them.")
    lines.append("LAYOUTS: dict[type[ctypes.Structure], tuple[int, dict[str, int]]] = {")
    for each in model.structures:
        offsets = ", ".join(f'"{field.name}": {field.offset}' for field in each.fields)
        lines.append(f"    {each.name}: ({each.size}, {{{offsets}}}),")
    lines.append("}\n\n# {code: (text, advice)} of all results.")
    lines.append("WORDS: dict[int, tuple[str, str]] = {")
    lines += [f"    {code}: ({text!r}, {advice!r})," for code, (text, advice) in model.words.items()]
    lines.append("}")
    for each in model.functions:
        lines += function(each)
    return "\n".join(lines) + "\n"
