"""What the public headers declare, as plain records: the model that each language of bindings/languages writes down.

    model = read()                     # of include/vxsign and words/resultWords.def
    model.constants                    # {name: value}, all enumerators and numbers, in the order of the headers
    model.structures                   # [Structure]: fields with offset and size as the compiler lays them out
    model.callbacks                    # [Function]: the types of pointers to functions
    model.functions                    # [Function]: the exports, in the order of the headers
    model.words                        # {code: (text, advice)}: what vxErrorDesc says, and what to do about it

A Function has `parameters` and `result`, both with a Type; a Parameter has the marks of its pointer (export.h). What
the types lead to is one of the NUMBERS, "char", "void", "FILE", or the name of a structure or a callback.

A language is a module with OUTPUT, a path below the project, and write(model), which gives the text of that file.
"""
import re
import subprocess
import sys
import tempfile
from dataclasses import dataclass, field
from pathlib import Path

from pycparser import c_ast, c_generator, c_parser

ROOT = Path(__file__).resolve().parent.parent
sys.path.insert(0, str(ROOT / "scripts"))
from resultWords import result_words  # noqa: E402

HEADERS = ROOT / "include" / "vxsign"
NUMBERS = ("int8_t", "uint8_t", "int16_t", "uint16_t", "int32_t", "uint32_t", "int64_t", "uint64_t", "int")


@dataclass(frozen=True)
class Type:
    name: str  # without pointers
    pointers: int = 0
    isConst: bool = False  # what the last pointer leads to
    length: int = 0  # of an array


@dataclass(frozen=True)
class Parameter:
    name: str
    type: Type
    isOut: bool = False  # VX_OUT or VX_INOUT: the function writes there
    isInOut: bool = False
    isOptional: bool = False  # may be null
    bytes: str = ""  # room or length, in C: a number or an expression over the other parameters
    count: str = ""  # the same in elements
    isPath: bool = False
    isSignText: bool = False

    @property
    def isText(self):
        """Whether it goes in as a text up to its NUL."""
        return not self.isOut and not self.bytes and self.type.pointers == 1 and (
            self.type.name == "char" or self.isSignText)


@dataclass(frozen=True)
class Function:
    name: str
    result: Type
    parameters: list[Parameter]
    isVariadic: bool
    header: str  # "api" for api.h
    comment: str  # of the function or of the group it stands in, without line breaks


@dataclass(frozen=True)
class Field:
    name: str
    type: Type
    offset: int
    size: int


@dataclass(frozen=True)
class Structure:
    name: str
    header: str
    comment: str
    size: int
    isPacked: bool
    fields: list[Field]


@dataclass
class Model:
    constants: dict[str, int] = field(default_factory=dict)
    structures: list[Structure] = field(default_factory=list)
    callbacks: list[Function] = field(default_factory=list)
    functions: list[Function] = field(default_factory=list)
    words: dict[int, tuple[str, str]] = field(default_factory=dict)


def preprocessed():
    command = ["cc", "-E", "-nostdinc", f"-I{ROOT / 'bindings' / 'fake'}", f"-I{HEADERS.parent}", "-x", "c",
               str(HEADERS / "vxsign.h")]
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def compiled(prints):
    """The numbers that the compiler gives for expressions."""
    lines = "\n".join(f'    printf("%lld\\n", (long long)({expression}));' for expression in prints)
    with tempfile.TemporaryDirectory() as folder:
        source = Path(folder) / "sizes.c"
        source.write_text(f"#include <vxsign/vxsign.h>\nint main(void)\n{{\n{lines}\n}}\n")
        subprocess.run(["cc", f"-I{HEADERS.parent}", "-o", f"{folder}/sizes", str(source)], check=True)
        return [int(line) for line in subprocess.check_output([f"{folder}/sizes"]).split()]


def comments():
    """{name: comment} of functions, callbacks and structures; one without a comment has that of the one above it."""
    found = {}
    for header in HEADERS.glob("*.h"):
        comment = ""
        token = r"/\*(.*?)\*/|^(?:VXSIGN_API [^;(]*?(\w+)\(|typedef \w+ \(\*(\w+)\)|typedef struct (\w+))"
        for match in re.finditer(token, header.read_text(), re.S | re.M):
            name = match[2] or match[3] or match[4]
            if name:
                found[name] = comment
            elif header.read_text()[:match.start()].endswith("\n"):
                comment = re.sub(r"\s*\n \* ?", " ", match[1]).strip()
    return found


class Reader:
    def __init__(self):
        self.model = Model()
        self.comments = comments()
        self.expression = c_generator.CGenerator().visit
        self.macros = []
        self.records = []  # (name, header, [(field, Type)], isPacked)

    def type(self, node):
        pointers, isConst, length = 0, False, ""
        while not isinstance(node, c_ast.TypeDecl):
            if isinstance(node, c_ast.ArrayDecl):
                length = self.expression(node.dim)
            pointers += isinstance(node, c_ast.PtrDecl)
            node = node.type
        isConst = "const" in node.quals
        name = node.type.name if isinstance(node.type, c_ast.Struct) else " ".join(node.type.names)
        return Type(name, pointers, isConst, length)

    def parameter(self, node):
        marks = {"type": self.type(node.type)}
        for mark in node.align:
            if isinstance(mark.alignment, c_ast.FuncCall):
                marks[mark.alignment.name.name] = self.expression(mark.alignment.args)
            else:
                marks[mark.alignment.name] = True
        marks["isOut"] = bool({"isOut", "isInOut"} & marks.keys())
        return Parameter(node.name, **marks)

    def function(self, name, node, header):
        parameters = node.args.params if node.args else []
        isVariadic = bool(parameters) and isinstance(parameters[-1], c_ast.EllipsisParam)
        taken = [self.parameter(each) for each in parameters if isinstance(each, c_ast.Decl)]
        return Function(name, self.type(node.type), taken, isVariadic, header, self.comments[name])

    def read(self, node, header, isPacked):
        if isinstance(node, c_ast.Typedef) and isinstance(node.type, c_ast.PtrDecl):
            self.model.callbacks.append(self.function(node.name, node.type.type, header))
        elif isinstance(node, c_ast.Typedef) and isinstance(node.type.type, c_ast.Struct):
            fields = [(each.name, self.type(each.type)) for each in node.type.type.decls]
            self.records.append((node.name, header, fields, isPacked))
        elif isinstance(node, c_ast.Decl) and isinstance(node.type, c_ast.FuncDecl):
            self.model.functions.append(self.function(node.name, node.type, header))
        elif isinstance(node, c_ast.Decl) and isinstance(node.type, c_ast.Enum):
            for each in node.type.values.enumerators:
                self.model.constants[each.name] = 0

    def lay(self):
        """Has the compiler say the constants, and the sizes and offsets of the structures."""
        constants = list(self.model.constants)
        asked = list(constants)
        for name, _, fields, _ in self.records:
            asked.append(f"sizeof({name})")
            for member, kind in fields:
                asked += [f"offsetof({name}, {member})", f"sizeof((({name}*)0)->{member})", kind.length or "0"]
        said = iter(compiled(asked))
        self.model.constants = {name: next(said) for name in constants}
        for name, header, fields, isPacked in self.records:
            size = next(said)
            laid = []
            for member, kind in fields:
                offset, width, length = next(said), next(said), next(said)
                laid.append(Field(member, Type(kind.name, kind.pointers, kind.isConst, length), offset, width))
            self.model.structures.append(Structure(name, header, self.comments[name], size, isPacked, laid))


def read():
    reader = Reader()
    isPacked = False
    for node in c_parser.CParser().parse(preprocessed()).ext:
        if isinstance(node, c_ast.Pragma):
            isPacked = "push" in node.string
        header = Path(node.coord.file).stem if node.coord else ""
        if header and header != "export":
            reader.read(node, header, isPacked)
    for header in sorted(HEADERS.glob("*.h")):
        for name in re.findall(r"^#define (VX_\w+) \w", header.read_text(), re.M):
            reader.model.constants[name] = 0
    reader.lay()
    reader.model.words = {number: (text, advice) for number, text, advice in result_words().values()}
    return reader.model
