"""Raw.cs: the functions, structures, callbacks and constants of the library as C# sees them."""
import re
import textwrap
from xml.sax.saxutils import escape

from model import ROOT
from resultWords import literal

OUTPUT = "bindings/csharp/Raw.cs"

NUMBERS = {"int8_t": "sbyte", "uint8_t": "byte", "int16_t": "short", "uint16_t": "ushort", "int32_t": "int",
           "uint32_t": "uint", "int64_t": "long", "uint64_t": "ulong", "int": "int", "char": "byte"}
KEYWORDS = {"in", "out", "ref", "params", "object", "string", "event", "fixed", "lock", "base", "checked", "operator"}

HEAD = """\
// The functions, structures, callbacks and constants of the library. Made by bindings/generate.py from include/vxsign:
// change the headers, not this file.
//
// A text is a string, in the encoding of this PC; a text that the sign sees is its bytes with a 0 behind them. What may
// be null is an array, also where it has one element. Whoever keeps a delegate in a structure keeps it alive.
using System;
using System.Collections.Generic;
using System.Runtime.InteropServices;

namespace Vxsign
{
"""

GLUE = "\u00A0"  # where no line may break


def name(text):
    return "@" + text if text in KEYWORDS else text


def comment(text, indent):
    lines = textwrap.wrap(escape(text), 116 - len(indent))
    if len(lines) == 1 and len(indent + lines[0]) < 90:
        return f"{indent}/// <summary>{lines[0]}</summary>\n"
    return "".join(f"{indent}/// {line}\n" for line in ["<summary>", *lines, "</summary>"])


def delegate(text):
    return "VxOn" + text[4:]


class Writer:
    def __init__(self, model):
        self.model = model
        self.structures = {structure.name for structure in model.structures}
        self.callbacks = {callback.name for callback in model.callbacks}

    def plain(self, kind):
        """A type as it stands in a structure, or goes over by its value."""
        if kind.pointers or kind.name in ("FILE", "void"):
            return "void" if kind.name == "void" and not kind.pointers else "IntPtr"
        if kind.name in self.callbacks:
            return delegate(kind.name)
        return NUMBERS.get(kind.name, kind.name)

    def pointer(self, parameter):
        """What stands for a pointer to one value, or to several."""
        kind = parameter.type
        if kind.pointers > 1 or kind.name == "FILE":
            return "IntPtr"
        several = parameter.bytes or parameter.count
        if kind.name in self.structures and not (kind.isConst or parameter.isOut or several):
            return "IntPtr"  # the library may keep it
        if kind.name == "void" and not several:
            return "IntPtr"
        element = NUMBERS.get(kind.name, "byte" if kind.name == "void" else kind.name)
        if several or parameter.isOptional:
            return f"[In, Out] {element}[]"
        return f"out {element}" if parameter.isOut and not parameter.isInOut and element not in self.structures \
            else f"ref {element}"

    def parameter(self, parameter, inCallback):
        if not parameter.type.pointers:
            kind = self.plain(parameter.type)
        elif inCallback:
            kind = f"ref {parameter.type.name}" if parameter.type.name in self.structures else "IntPtr"
        elif parameter.isText:
            kind = "byte[]" if parameter.isSignText else "string"
        else:
            kind = self.pointer(parameter)
        return f"{kind} {name(parameter.name)}".replace(" ", GLUE)

    def parameters(self, function, inCallback=False):
        return ", ".join(self.parameter(each, inCallback) for each in function.parameters)

    def wrapped(self, text, indent):
        return textwrap.fill(text, 120, initial_indent=indent, subsequent_indent=indent + "    ",
                             break_long_words=False, break_on_hyphens=False).replace(GLUE, " ") + "\n"

    def field(self, field):
        count, kind = field.type.length, field.type.name
        if kind in self.structures:  # several of them: their bytes
            count, kind = field.size, "char"
        if count:
            return f"fixed {NUMBERS[kind]} {name(field.name)}[{count}]"
        return f"{'IntPtr' if kind in self.callbacks else NUMBERS[kind]} {name(field.name)}"

    def structure(self, structure):
        text = comment(structure.comment, "    ")
        text += f"    [StructLayout(LayoutKind.Explicit, Size = {structure.size})]\n"
        text += f"    public unsafe struct {structure.name}\n    {{\n"
        for field in structure.fields:
            text += f"        [FieldOffset({field.offset})] public {self.field(field)};\n"
        return text + "    }\n\n"

    def callback(self, callback):
        text = comment(callback.comment, "    ")
        text += "    [UnmanagedFunctionPointer(CallingConvention.Cdecl)]\n"
        return text + self.wrapped(f"public delegate {self.plain(callback.result)} {delegate(callback.name)}"
                                   f"({self.parameters(callback, True)});", "    ") + "\n"

    def function(self, function):
        text = comment(function.comment, "        ")
        text += "        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,\n" \
                "            BestFitMapping = false, ThrowOnUnmappableChar = true)]\n"
        return text + self.wrapped(f"public static extern {self.plain(function.result)} {function.name}"
                                   f"({self.parameters(function)});", "        ") + "\n"


def write(model):
    writer = Writer(model)
    version = re.search(r"project\(vxsign VERSION (\S+)", (ROOT / "CMakeLists.txt").read_text())[1]
    text = HEAD + "".join(map(writer.callback, model.callbacks)) + "".join(map(writer.structure, model.structures))
    text += "    public static class Raw\n    {\n"
    text += '        public const string Library = "vxsign";\n\n'
    text += f'        /// <summary>The version of the library that this is for; it works with later ones.</summary>\n'
    text += f'        public const string Version = "{version}";\n\n'
    for constant, value in model.constants.items():
        text += f"        public const {'int' if value < 0 else 'uint'} {constant} = {value};\n"
    text += "\n" + comment("What helps against a result; nothing for one that says all itself.", "        ")
    text += "        public static readonly IReadOnlyDictionary<uint, string> Advice = new Dictionary<uint, string>\n"
    text += "        {\n"
    for code, (_, advice) in sorted(model.words.items()):
        if advice:
            text += f"            [{code}] = {literal(advice)},\n"
    text += "        };\n\n" + comment("The bytes of each structure.", "        ")
    text += "        public static readonly IReadOnlyDictionary<Type, int> Sizes = new Dictionary<Type, int>\n        {\n"
    for structure in model.structures:
        text += f"            [typeof({structure.name})] = {structure.size},\n"
    text += "        };\n\n" + "".join(map(writer.function, model.functions))
    return text.rstrip() + "\n    }\n}\n"
