#!/usr/bin/env bash
# check_symbols.sh MODULE PLATFORM: the module defines exactly the entries of entries.txt, and takes nothing
# from outside but functions of the platform layer and the language's runtime of runtime.txt.
set -euo pipefail
here=$(dirname "$0")
export LC_ALL=C

names() { nm -D "$@" | awk '{print $NF}' | sed 's/@.*//' | sort -u; }

status=0
if ! difference=$(diff "$here/entries.txt" <(names --defined-only "$1")); then
    echo "The module's entries are not those of entries.txt (<: missing, >: not meant to be seen):"
    echo "$difference"
    status=1
fi
if ! difference=$(comm -13 <(sort -u "$here/runtime.txt" <(names --defined-only "$2" | grep -v '^_Z')) \
                           <(names --undefined-only "$1")) || [ -n "$difference" ]; then
    echo "The module takes from outside what is neither the platform's nor the language's:"
    echo "$difference"
    status=1
fi
exit $status
