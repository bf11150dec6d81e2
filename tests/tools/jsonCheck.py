# Checks JSON objects, one on each line: jsonCheck.py SCHEMA OBJECTS [COMMANDS]. Each has to be as the schema says. With a
# file that names all commands, the schema knows these and no others, and a member is in vain that no object has.
import json
import sys

from jsonschema import Draft202012Validator

UNSEEN = {("traffic flow", "block")}  # of a controller that counts otherwise than vxsim


def members_of(schema):
    """What the schema tells of each command: its name, and its members."""
    for row in schema["allOf"]:
        yield row["if"]["properties"]["command"]["const"], set(row["then"]["properties"])


def uncovered(schema, objects, commands):
    known = {name for name in schema["properties"]["command"]["enum"] if name}
    families = {name.rsplit(" ", depth)[0] for name in commands for depth in range(1, name.count(" ") + 1)}
    for name in sorted(known ^ (commands | families)):
        yield f"the schema and the tool do not both know: {name}"
    done = {found["command"] for found in objects if found["result"] == 0}
    for name in sorted(commands - done):
        yield f"nothing tells of success: {name}"
    for name, members in members_of(schema):
        for member in sorted(members - {key for found in objects if found["command"] == name for key in found}):
            if (name, member) not in UNSEEN:
                yield f"no object has it: {name}, {member}"


def main(schema_path, objects_path, commands_path=None):
    with open(schema_path, encoding="utf-8") as file:
        schema = json.load(file)
    Draft202012Validator.check_schema(schema)
    validator = Draft202012Validator(schema)
    with open(objects_path, encoding="ascii") as file:
        objects = [json.loads(line) for line in file]
    complaints = []
    for found in objects:
        errors = sorted(validator.iter_errors(found), key=lambda error: len(error.absolute_path))
        if errors:  # those further out only follow from the innermost
            complaints.append(f"{errors[-1].json_path}: {errors[-1].message[:300]}\n    in {json.dumps(found)[:600]}")
    if commands_path:
        with open(commands_path, encoding="ascii") as file:
            complaints += uncovered(schema, objects, set(file.read().splitlines()))
    for complaint in complaints:
        print(f"FAILED: {complaint}", file=sys.stderr)
    return 1 if complaints else 0


sys.exit(main(*sys.argv[1:]))
