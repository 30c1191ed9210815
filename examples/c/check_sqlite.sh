#!/usr/bin/env bash
# check_sqlite.sh EXTENSION: the extension for SQLite answers, refuses, and takes a million rows.
set -euo pipefail
extension=${1%.so}

# A refusal ends sqlite3 with a status, which is expected of some.
ask() {
    sqlite3 :memory: -cmd ".load $extension" "$1" 2>&1 | sed 's/^Error: stepping, //' || true
}

diff -u - <(
    ask "SELECT value_convert(1000, 'ft', 'm'), value_convert(-40, 'degC', 'degF'), value_convert(NULL, 'ft', 'm');"
    ask "WITH RECURSIVE counted(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM counted WHERE n < 1000000)
         SELECT sum(value_convert(n, 'ft', 'm')) / 0.3048 FROM counted;"
    ask "SELECT round(value_convert(1013.25, 'hPa', 'inHg'), 4), round(value_convert(30, 'psi', 'bar'), 4);"
    ask "WITH units(u) AS (VALUES ('mm'), ('km')) SELECT value_convert(5, u, 'm') FROM units;"
    ask "SELECT value_convert(5, 'ft', 's');"
    ask "SELECT value_convert('five', 'ft', 'm');"
) << 'EOF'
304.8|-40.0|
500000500000.0
29.9213|2.0684
0.005
5000.0
cannot convert ft (length) to s (time): the kinds differ
value_convert: the first argument is a number
EOF
