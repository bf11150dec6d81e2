#!/usr/bin/env python3
"""What the reference is made of: one public header as Doxygen wants to read it. The headers stay as people want to read them.

A comment belongs to all declarations that stand right below it, blank lines between them or not, and to each structure, enumeration
and member; a comment behind one belongs to what is ahead of it. Names of the library become links, a result word gets the text and the
advice that belong to it.
"""
import re
import sys
import textwrap
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent.parent
sys.path.insert(0, str(ROOT / "scripts"))
from functionIndex import HEADERS, TASKS  # noqa: E402
from resultWords import result_words  # noqa: E402

COMMENT = re.compile(r"/\*(.*?)\*/", re.S)
NAME = re.compile(r"\b(vx\w+|VX_[A-Z0-9_]+)\b(?!\.h)(?:\(\))?")
SET_IN = re.compile(r"(?:\n+  +.*)+")
SPECIAL = re.compile(r"[\\@<>*#&$%|~`]")


def declared():
    """All that the headers declare and a text may name."""
    text = "".join(path.read_text() for path in HEADERS.glob("*.h"))
    text = re.sub(r"/\*.*?\*/", "", text, flags=re.S)
    return set(re.findall(r"\b(vx\w+|VX_[A-Z0-9_]+)\b", text)) - {"vxsign"}


KNOWN = declared()
WORDS = result_words()


def plain(text):
    """What Doxygen takes for nothing but text."""
    return SPECIAL.sub(lambda sign: "\\" + sign.group(), text)


def link(name):
    return f'\\ref {name} "{name}"'


def linked(text):
    """Plain text in Doxygen's manner: nothing in it is a command, and what the headers declare is a link. What stands in quotes it
    leaves alone."""
    parts = re.split(r'("[^"]*")', text)
    for at in range(0, len(parts), 2):
        parts[at] = NAME.sub(lambda name: link(name[1]) if name[1] in KNOWN else name[0], plain(parts[at]))
    return "".join(parts)


def body(comment):
    """The text of a comment; lines that are set in, which are tables and lists, stay lines."""
    text = linked("\n".join(re.sub(r"^ ?\* ?", "", line).rstrip() for line in comment.strip().split("\n")))
    return SET_IN.sub(lambda lines: f"\n<pre>\n{textwrap.dedent(lines[0].strip(chr(10)))}\n</pre>\n", text)


def trailing(line):
    """A member with what stands behind it; a result word with its text and advice. What heads several is no part of one."""
    if line.lstrip().startswith("/*"):
        return line
    comment = COMMENT.search(line)
    text = body(comment.group(1)) if comment else ""
    name = re.match(r"\s*(VX_\w+) = ", line)
    _, said, advice = WORDS.get(name.group(1) if name else "", (0, "", ""))
    said = f'"{linked(said)}"' if said else ""
    note = ": ".join(part for part in (said, text) if part) + (f". _{linked(advice)}_" if advice else "")
    code = COMMENT.sub("", line).rstrip()
    return f"{code} /**< {note} */" if note else code


def members(text):
    return "\n".join(trailing(line) if "/*" in line or "= 0x" in line else line for line in text.split("\n"))


# A comment of its own, or what follows one: a structure or enumeration with its braces, or a declaration.
PIECE = re.compile(r"(?P<comment>/\*.*?\*/)|(?P<block>(?:typedef )?(?:struct|enum)[^;{}]*\{.*?\n\}[^;]*;)|"
                   r"(?P<one>(?:VXSIGN_API|typedef|struct)[^;{]*;)|(?P<define>#define \w+ .*)", re.S)


def pieces(text):
    comment = ""
    for piece in PIECE.finditer(text):
        if piece["comment"]:
            comment = body(piece["comment"][2:-2])
        elif piece["define"]:
            yield f"/** {comment} */\n{piece['define'].splitlines()[0]}"
        else:
            code = piece.group()
            if code.startswith("VXSIGN_API") and not comment:
                raise SystemExit(f"not described: {code}")
            yield f"/** {comment} */\n{members(code) if piece['block'] else code}" if comment else members(code)
            if piece["block"]:
                comment = ""


def group(header):
    return f"header_{header}"


def tasks():
    """The groups: each task, and below it its headers."""
    for task, headers in TASKS.items():
        name = re.sub(r"\W+", "_", task.lower())
        yield f"/** @defgroup {name} {task} */"
        for header in headers:
            title, text = split_title((HEADERS / f"{header}.h").read_text())
            yield f"/** @defgroup {group(header)} {header}.h: {title}\n@ingroup {name}\n{text} */"


def split_title(header):
    """The first sentence of a header, and what it says behind that."""
    text = COMMENT.search(header).group(1)
    title = re.split(r"(?<=[.:]) |\n \*\n", text.strip() + " ")[0]
    return plain(re.sub(r"\s*\n \* ?", " ", title)).rstrip(".:"), body(text)


def marks(text):
    """What stands before a pointer, each with its line of the list in export.h."""
    comment = next(comment for comment in COMMENT.findall(text) if "VX_OUT" in comment)
    for names, said in re.findall(r"\n \*   (VX_\S+(?:, VX_\S+)*)  +(.*(?:\n \*    +.*)*)", comment):
        for name in names.split(", "):
            text = linked(re.sub(r"\n \*  +", " ", said))
            yield f"/** {text} */\n#define {name}"


PROGRAMS = sorted((ROOT / "examples").glob("*.c"))


def examples():
    """The programs, each with what it says of itself."""
    for path in PROGRAMS:
        comment = COMMENT.match(path.read_text())
        yield f"/** @example {path.name}\n{body(comment.group(1)) if comment else ''} */"


def page(text):
    """A page whose words in backquotes are links where there is something behind them."""
    known = KNOWN | {path.name for path in PROGRAMS} | {"vxsign::Sign"}
    return re.sub("`([\\w:.]+)`", lambda word: link(word[1]) if word[1] in known else word[0], text)


def main():
    path = Path(sys.argv[1])
    text = path.read_text()
    if path.suffix == ".md":
        print(page(text))
        return
    if path.suffix == ".hpp":
        print(re.sub(r"^(\s*)// ?", r"\1/// ", text, flags=re.M))
        return
    if path.name == "vxsign.h":
        print("\n".join([*tasks(), *examples()]))
        return
    if path.name == "export.h":
        print("\n".join(["/** @file */", *marks(text)]))
        return
    inner = text[text.index("VXSIGN_BEGIN") + len("VXSIGN_BEGIN"):text.rindex("VXSIGN_END")]
    print(f"/** @addtogroup {group(path.stem)}\n@{{ */")
    print("\n\n".join(pieces(inner)))
    print("/** @} */")


main()
