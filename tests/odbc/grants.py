#!/usr/bin/env python3
"""Prints the rights that a login needs on a server: what the statements of the module do to each
table. With a document, tells whether its GRANT statements are these, once for each engine."""

import re
import sys

# What the tools do beside the module: `quorvane-escuela bloqueos --borrar` and its like in the host.
TOOLS = [
    "DELETE FROM BloqueoPte WHERE CodPublicacion=1",
    "DELETE FROM PublicacionPte WHERE IDPublicacionPte=1",
]


def statements(path):
    for line in open(path, encoding="utf-8"):
        line = line.strip("\n")
        # What no event reaches needs no right.
        if not line or line[0] in "#~":
            continue
        yield line[2:] if line.startswith("? ") else line


def tables(schema):
    """By their names in small letters."""
    names = re.findall(r"^CREATE TABLE (\w+)", open(schema, encoding="utf-8").read(), re.M)
    return {name.lower(): name for name in names}


def rights(all_statements, known):
    found = {name: set() for name in known.values()}
    for statement in all_statements:
        verb = statement.split()[0].upper()
        for keyword, first in re.findall(
            r"\b(FROM|JOIN|INTO|UPDATE)\s+[(\s]*((?:\[?\w+\]?)(?:\s*,\s*\[?\w+\]?)*)", statement, re.I
        ):
            for name in re.findall(r"\w+", first):
                table = known.get(name.lower())
                if table is None:
                    continue
                found[table].add("SELECT")
                if keyword.upper() == "INTO":
                    found[table].add("INSERT")
                if keyword.upper() == "UPDATE":
                    found[table].add("UPDATE")
        if verb == "DELETE":
            target = re.match(r"\s*DELETE\s+(?:FROM\s+)?(\w+)", statement, re.I).group(1).lower()
            if target in known:
                found[known[target]].add("DELETE")
    return found


# What stands before a table's name: PostgreSQL's and SQL Server's, in the document's order.
SCHEMAS = ("", "dbo.")


def grants(found, schema):
    order = ["SELECT", "INSERT", "UPDATE", "DELETE"]
    lines = []
    for table, verbs in sorted(found.items(), key=lambda item: (len(item[1]) == 1, item[0].lower())):
        if verbs:
            named = ", ".join(verb for verb in order if verb in verbs)
            lines.append(f"GRANT {named} ON {schema}{table} TO zendria;")
    return lines


def main():
    catalogue, schema = sys.argv[1:3]
    known = tables(schema)
    # A school is looked over whole before it is opened.
    check = [f"SELECT * FROM {name} WHERE 1=0" for name in known.values()]
    found = rights(list(statements(catalogue)) + TOOLS + check, known)
    lines = [line for engine in SCHEMAS for line in grants(found, engine)]
    if len(sys.argv) == 3:
        print("\n".join(lines))
        return 0
    document = open(sys.argv[3], encoding="utf-8").read()
    given = re.findall(r"^GRANT (?!CONNECT ON DATABASE ).*;$", document, re.M)
    for line in sorted(set(lines) ^ set(given)):
        print("only in the document:" if line in given else "missing in the document:", line)
    return given != lines


if __name__ == "__main__":
    sys.exit(main())
