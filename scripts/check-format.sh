#!/bin/sh
# Checks that every C++ file is formatted; says which are not and how to mend them.
#
#   scripts/check-format.sh [--fix]
set -eu
cd "$(dirname "$0")/.."

files=$(git ls-files '*.cpp' '*.h' | grep -v '^src/text/UpperCaseTable.cpp$')
if [ "${1:-}" = --fix ]; then
    echo "$files" | xargs clang-format -i
    exit 0
fi
if ! echo "$files" | xargs clang-format --dry-run -Werror 2>/tmp/norvo-format.$$; then
    grep -o '^[^:]*' "/tmp/norvo-format.$$" | sort -u >&2
    rm -f "/tmp/norvo-format.$$"
    echo "These files are not formatted. Run: scripts/check-format.sh --fix" >&2
    exit 1
fi
rm -f "/tmp/norvo-format.$$"
