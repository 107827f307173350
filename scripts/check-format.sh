#!/bin/sh
# Checks that every C++ file is formatted; says which are not and how to mend them.
#
#   scripts/check-format.sh [--fix]
set -eu
cd "$(dirname "$0")/.."

sources() {
    find src tests bench fuzz examples \( -name '*.cpp' -o -name '*.h' \) ! -name UpperCaseTable.cpp
}
if [ "${1:-}" = --fix ]; then
    sources | xargs clang-format -i
    exit 0
fi
if ! problems=$(sources | xargs clang-format --dry-run -Werror 2>&1); then
    echo "$problems" | grep -o '^[^: ]*\.\(cpp\|h\)' | sort -u >&2
    echo "These files are not formatted. Run: scripts/check-format.sh --fix" >&2
    exit 1
fi
