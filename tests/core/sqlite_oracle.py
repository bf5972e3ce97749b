"""The database file as another program sees it: one SQL statement a line, its rows as JSON."""

import json
import sqlite3
import sys

database = sqlite3.connect(sys.argv[1], isolation_level=None)
for statement in sys.stdin:
    print(json.dumps(database.execute(statement).fetchall(), ensure_ascii=False))
