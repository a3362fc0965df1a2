#!/usr/bin/env bash
# Every C++ file is formatted as .clang-format says, by version 14: others differ in details.
set -u
cd "$1" || exit 1
clang-format --version | grep -q 'version 14\.' || { echo "clang-format 14 is needed, not: $(clang-format --version)"; exit 1; }
mapfile -t files < <(find module engine editor embedded tools benchmarks tests \
    \( -name '*.h' -o -name '*.hpp' -o -name '*.cpp' \) 2>/dev/null)
[ ${#files[@]} -gt 0 ] || { echo "no files found"; exit 1; }
clang-format --dry-run -Werror --ferror-limit=1 "${files[@]}" && echo "${#files[@]} files formatted"
