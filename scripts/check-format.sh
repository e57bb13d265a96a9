#!/usr/bin/env bash
# Every source file is as clang-format writes it.
set -euo pipefail
cd "$(dirname "$(realpath "${BASH_SOURCE[0]}")")/.."
find src tests bench -name '*.cpp' -print0 -o -name '*.h' -print0 | xargs -0 clang-format --dry-run --Werror
