#!/usr/bin/env python3
"""A small server of the protocol that SQL Server speaks (TDS 7.4), on a SQLite file: so that a real
driver can be tested where no such server can be had. It says the port that it listens on, notes
every batch word for word, and answers with the types that the school's tables have there."""

import argparse
import datetime
import decimal
import json
import os
import re
import socketserver
import sqlite3
import struct
import threading

PRELOGIN, LOGIN, BATCH, ATTENTION = 0x12, 0x10, 0x01, 0x06
REPLY, LAST = 0x04, 0x01
PACKET = 4096
COLLATION = bytes([0x0A, 0x0C, 0xD0, 0x00, 0x34])
MORE, ERROR, COUNT = 0x01, 0x02, 0x10


def b_text(text):
    return bytes([len(text.encode("utf-16-le")) // 2]) + text.encode("utf-16-le")


def us_text(text):
    return struct.pack("<H", len(text.encode("utf-16-le")) // 2) + text.encode("utf-16-le")


class Column:
    """A column's type and how its cells are written."""

    def __init__(self, name, kind):
        self.name = name
        self.kind = kind

    def metadata(self):
        return struct.pack("<IH", 0, 0x0009) + self.type() + b_text(self.name)

    def type(self):
        whole = {"tinyint": 1, "smallint": 2, "int": 4, "bigint": 8}
        if self.kind in whole:
            return bytes([0x26, whole[self.kind]])
        return {
            "bit": bytes([0x68, 1]),
            "float": bytes([0x6D, 8]),
            "real": bytes([0x6D, 4]),
            "decimal": bytes([0x6C, 17, 38, 2]),
            "datetime": bytes([0x6F, 8]),
            "date": bytes([0x28]),
            "guid": bytes([0x24, 16]),
            "nvarchar": struct.pack("<BH", 0xE7, 8000) + COLLATION,
            "varchar": struct.pack("<BH", 0xA7, 8000) + COLLATION,
            "nvarchar(max)": struct.pack("<BH", 0xE7, 0xFFFF) + COLLATION,
        }[self.kind]

    def cell(self, value):
        if self.kind == "nvarchar(max)":
            if value is None:
                return struct.pack("<Q", 0xFFFFFFFFFFFFFFFF)
            data = value.encode("utf-16-le")
            pieces = b""
            for at in range(0, len(data), 5000):
                piece = data[at : at + 5000]
                pieces += struct.pack("<I", len(piece)) + piece
            return struct.pack("<Q", len(data)) + pieces + struct.pack("<I", 0)
        if self.kind in ("nvarchar", "varchar"):
            if value is None:
                return struct.pack("<H", 0xFFFF)
            data = str(value).encode("utf-16-le" if self.kind == "nvarchar" else "cp1252")
            return struct.pack("<H", len(data)) + data
        data = b"" if value is None else self.number(value)
        return bytes([len(data)]) + data

    def number(self, value):
        packed = {"tinyint": "<B", "smallint": "<h", "int": "<i", "bigint": "<q", "float": "<d", "real": "<f"}
        if self.kind in packed:
            return struct.pack(packed[self.kind], value)
        if self.kind == "bit":
            return bytes([1 if value else 0])
        if self.kind == "decimal":
            units = int(decimal.Decimal(value) * 100)
            return bytes([1 if units >= 0 else 0]) + abs(units).to_bytes(16, "little")
        if self.kind == "guid":
            return bytes(range(16))
        if self.kind == "date":
            return (value - datetime.date(1, 1, 1)).days.to_bytes(3, "little")
        days = (value.date() - datetime.date(1900, 1, 1)).days
        midnight = datetime.datetime.combine(value.date(), datetime.time())
        return struct.pack("<iI", days, int((value - midnight).total_seconds() * 300))


def rows_token(columns, rows):
    out = b"\x81" + struct.pack("<H", len(columns)) + b"".join(c.metadata() for c in columns)
    for row in rows:
        out += b"\xd1" + b"".join(c.cell(value) for c, value in zip(columns, row))
    return out


def done(status=0, count=0):
    return b"\xfd" + struct.pack("<HHQ", status, 0xC1, count)


def error(number, text, kind=16):
    body = struct.pack("<IBB", number, 1, kind) + us_text(text) + b_text("prueba") + b_text("")
    body += struct.pack("<I", 1)
    return b"\xaa" + struct.pack("<H", len(body)) + body


LONG = "ñ😀" * 30000
TYPES = [
    ("tinyint", 255),
    ("smallint", -32768),
    ("int", -2147483648),
    ("bigint", 9007199254740993),
    ("bit", 1),
    ("float", 2.5),
    ("real", 0.5),
    ("decimal", "-12.34"),
    ("datetime", datetime.datetime(2026, 3, 1, 10, 30)),
    ("date", datetime.date(2026, 12, 31)),
    ("nvarchar", "Íñigo 😀"),
    ("varchar", "Ñúñez"),
    ("nvarchar(max)", LONG),
    ("guid", 0),
]


def order_by_places(sql):
    """A UNION's ORDER BY with the columns' places for their names, as the engine behind this server
    needs it: it gives the columns of nested joins names of its own."""
    found = re.match(r"(SELECT\s+(?:DISTINCT\s+)?(.*?)\s+FROM\s.*\sUNION\s.*\sORDER BY\s+)(.*)$", sql,
                     re.I | re.S)
    if not found:
        return sql
    names = [column.split()[-1].split(".")[-1].lower() for column in found[2].split(",")]
    terms = []
    for term in found[3].split(","):
        name, *direction = term.split()
        place = str(names.index(name.lower()) + 1) if name.lower() in names else name
        terms.append(" ".join([place, *direction]))
    return found[1] + ", ".join(terms)


def all_types():
    columns = [Column(kind, kind) for kind, _ in TYPES]
    full = [value for _, value in TYPES]
    rows = [full, [None] * len(TYPES), [v if k != "decimal" else "700" for k, v in TYPES]]
    return rows_token(columns, rows) + done(COUNT, len(rows))


def parts(last):
    """Two counts, a row, and what comes last."""
    number = rows_token([Column("n", "int")], [[7]])
    return done(MORE | COUNT, 3) + done(MORE | COUNT, 1) + number + done(MORE | COUNT, 1) + last


class School:
    """The SQLite file, made to behave as the other engine where the module can tell."""

    def __init__(self, options):
        self.options = options
        self.lock = threading.Lock()
        self.kinds = {}
        self.bits = {}
        table = None
        for line in open(options.schema, encoding="utf-8"):
            begin = re.match(r"CREATE TABLE (\w+)", line)
            column = re.match(r"  (\w+) (int|smallint|tinyint|bit|nvarchar|varchar)\b", line)
            if begin:
                table = begin.group(1).lower()
                self.bits[table] = []
            elif column:
                name, kind = column.group(1).lower(), column.group(2)
                # Where tables differ the widest holds all.
                known = self.kinds.setdefault(name, kind)
                self.kinds[name] = kind if known == kind else "int"
                if kind == "bit":
                    self.bits[table].append(column.group(1))

    def note(self, text):
        with self.lock, open(self.options.log, "a", encoding="utf-8") as log:
            log.write(json.dumps(text, ensure_ascii=False) + "\n")

    def connect(self):
        database = sqlite3.connect(
            self.options.db, isolation_level=None, timeout=30, check_same_thread=False
        )
        database.execute("ATTACH ':memory:' AS INFORMATION_SCHEMA")
        database.execute("CREATE TABLE INFORMATION_SCHEMA.TABLES (TABLE_SCHEMA, TABLE_NAME, TABLE_TYPE)")
        # Beside the school's, which are not asked for by name.
        for schema, name in ("dbo", "Alumno"), ("dbo", "Recibo"), ("contabilidad", "Factura"):
            database.execute(
                "INSERT INTO INFORMATION_SCHEMA.TABLES VALUES (?,?,'BASE TABLE')", (schema, name)
            )
        database.execute("ATTACH ':memory:' AS sys")
        for catalogue in "triggers", "tables":
            database.execute(f"CREATE TABLE sys.{catalogue} (name)")
        database.create_function("SCHEMA_NAME", 0, lambda: "dbo")
        return database

    def column(self, name, values):
        # An expression has no name there, and the later of two columns is not numbered.
        name = "" if "(" in name or "'" in name else name.split(":")[0]
        values = [value for value in values if value is not None]
        kind = self.kinds.get(name.lower())
        if any(isinstance(value, str) for value in values):
            longest = max(len(str(value)) for value in values)
            kind = "nvarchar(max)" if longest > 2000 else "nvarchar"
        elif any(isinstance(value, float) for value in values):
            kind = "float"
        elif values and (kind in (None, "nvarchar", "varchar") or not self.fits(kind, values)):
            kind = "int" if self.fits("int", values) else "bigint"
        return Column(name, kind or "nvarchar")

    @staticmethod
    def fits(kind, values):
        least, most = {
            "tinyint": (0, 255),
            "smallint": (-(2**15), 2**15 - 1),
            "int": (-(2**31), 2**31 - 1),
            "bit": (0, 1),
        }.get(kind, (-(2**63), 2**63 - 1))
        return all(least <= value <= most for value in values)

    def run(self, database, text):
        if text.startswith("EXEC tipos"):
            return all_types()
        if text.startswith("EXEC partes"):
            return parts(done(COUNT, 0))
        if text.startswith("EXEC falla"):
            return parts(error(547, "La parte última falló, señor") + done(ERROR))
        if re.match(r"\s*(SET|USE)\b", text, re.I):
            return done()
        try:
            return self.answer(database, text)
        except sqlite3.Error as failure:
            return self.failure(str(failure))

    def answer(self, database, text):
        sql = re.sub(r"(?<!\w)N?('(?:[^']|'')*')", r"\1", text)
        sql = re.sub(r"\+(?=\s*')", "||", sql)
        sql = re.sub(r"(?<=')(\s*)\+", r"\1||", sql)
        sql = order_by_places(sql)
        sql = re.sub(r"^SELECT TOP (\d+) (.*)$", r"SELECT \2 LIMIT \1", sql, flags=re.S)
        sql = re.sub(r" OFFSET (\d+) ROWS FETCH NEXT (\d+) ROWS ONLY$", r" LIMIT \2 OFFSET \1", sql)
        cursor = database.execute(sql)
        if cursor.description is None:
            self.round_bits(database, text)
            return done(COUNT, max(cursor.rowcount, 0))
        rows = cursor.fetchall()
        columns = [
            self.column(described[0], [row[i] for row in rows])
            for i, described in enumerate(cursor.description)
        ]
        return rows_token(columns, rows) + done(COUNT, len(rows))

    def round_bits(self, database, text):
        """A bit takes any number as 1."""
        written = re.match(r"\s*(?:INSERT\s+INTO|UPDATE)\s+\[?(\w+)", text, re.I)
        for column in self.bits.get(written.group(1).lower(), []) if written else []:
            database.execute(f"UPDATE {written.group(1)} SET {column}=1 WHERE {column} NOT IN (0,1)")

    @staticmethod
    def failure(text):
        for pattern, number, words in (
            (r"no such table: (.*)", 208, "Invalid object name '%s'."),
            (r"no such column: (.*)", 207, "Invalid column name '%s'."),
            (r"UNIQUE constraint failed: (.*)", 2627, "Violation of PRIMARY KEY constraint in '%s'."),
        ):
            found = re.match(pattern, text)
            if found:
                return error(number, words % found.group(1)) + done(ERROR)
        return error(102, text, 15) + done(ERROR)


class Client(socketserver.BaseRequestHandler):
    def read(self, count):
        data = b""
        while len(data) < count:
            piece = self.request.recv(count - len(data))
            if not piece:
                raise ConnectionError
            data += piece
        return data

    def message(self):
        body = b""
        while True:
            kind, status, length = struct.unpack(">BBH", self.read(8)[:4])
            body += self.read(length - 8)
            if status & LAST:
                return kind, body

    def send(self, body):
        for at in range(0, max(len(body), 1), PACKET - 8):
            piece = body[at : at + PACKET - 8]
            last = LAST if at + PACKET - 8 >= len(body) else 0
            header = struct.pack(">BBHHBB", REPLY, last, len(piece) + 8, 0, 1, 0)
            self.request.sendall(header + piece)

    def prelogin(self):
        options = [(0, bytes([15, 0, 0, 0, 0, 0])), (1, b"\x02"), (2, b"\x00"), (3, b""), (4, b"\x00")]
        at = 5 * len(options) + 1
        head = data = b""
        for number, value in options:
            head += struct.pack(">BHH", number, at + len(data), len(value))
            data += value
        self.send(head + b"\xff" + data)

    def login(self, body):
        def field(number):
            at, length = struct.unpack_from("<HH", body, 36 + 4 * number)
            return body[at : at + 2 * length]

        hidden = bytes((b ^ 0xA5) >> 4 | ((b ^ 0xA5) & 0x0F) << 4 for b in field(2))
        if hidden.decode("utf-16-le") != self.server.school.options.password:
            user = field(1).decode("utf-16-le")
            self.send(error(18456, f"Login failed for user '{user}'.", 14) + done(ERROR))
            return False
        ack = struct.pack("<B", 1) + b"\x74\x00\x00\x04" + b_text(self.server.school.options.product)
        ack += bytes([15, 0, 7, 208])
        database = field(8).decode("utf-16-le") or "Centro"
        change = b"\x01" + b_text(database) + b_text("master")
        self.send(
            b"\xe3" + struct.pack("<H", len(change)) + change
            + b"\xad" + struct.pack("<H", len(ack)) + ack
            + done()
        )
        return True

    def handle(self):
        school = self.server.school
        database = school.connect()
        try:
            while True:
                kind, body = self.message()
                if kind == PRELOGIN:
                    self.prelogin()
                elif kind == LOGIN:
                    if not self.login(body):
                        return
                elif kind == BATCH:
                    text = body[struct.unpack_from("<I", body)[0] :].decode("utf-16-le")
                    school.note(text)
                    if school.options.dies_at and school.options.dies_at in text:
                        os._exit(1)
                    self.send(school.run(database, text))
                elif kind == ATTENTION:
                    self.send(done(0x20))
                else:
                    self.send(error(2812, "Solo se admiten lotes") + done(ERROR))
        except ConnectionError:
            pass
        finally:
            # What was begun and not committed is undone.
            database.close()


class Server(socketserver.ThreadingTCPServer):
    daemon_threads = True
    allow_reuse_address = True


def main():
    arguments = argparse.ArgumentParser()
    for name in ("--db", "--log", "--schema", "--password"):
        arguments.add_argument(name, required=True)
    arguments.add_argument("--dies-at", help="the batch with this text ends the server")
    arguments.add_argument("--product", default="Microsoft SQL Server", help="what it calls itself")
    options = arguments.parse_args()
    with Server(("127.0.0.1", 0), Client) as server:
        server.school = School(options)
        print(server.server_address[1], flush=True)
        server.serve_forever()


if __name__ == "__main__":
    main()
