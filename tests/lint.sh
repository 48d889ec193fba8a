#!/usr/bin/env bash
# Looks at the sources without running them: tests/lint.sh CHECK [BUILD]
#
#   format      clang-format would leave every source as it is
#   fix-format  makes it so
#   scripts     shellcheck has nothing to say about the shell scripts
#   tidy        nor has clang-tidy about the sources that BUILD compiles; the build is finished, for it reads
#               what Qt's tools have generated there
#
# Exit code 77: the tool is not to be had.
set -euo pipefail
cd "$(dirname "$0")/.."

# Debian 12's. Another version formats otherwise and finds other things.
LLVM=14

skip() {
  echo "Skipped: $1."
  exit 77
}

need_tool() { command -v "$1" >/dev/null || skip "$1 is not installed (./dev lint installs it)"; }

need_llvm() {
  need_tool "$1"
  [[ $("$1" --version) == *"version $LLVM."* ]] || skip "the sources are kept by $1 $LLVM, this is another version"
}

sources() {
  find . \( -path ./build -o -path './.*' \) -prune -o \
    -type f \( -name '*.h' -o -name '*.cpp' \) -print | sort
}

# compiled BUILD: the sources that it compiles, without those that it has made itself
compiled() {
  sed -n 's/^ *"file": "\(.*\)",\{0,1\}$/\1/p' "$1/compile_commands.json" | sort -u | grep -v "^$1/"
}

# run_tidy BUILD CHECKS: clang-tidy on the sources whose names are read. It is a Clang and does not know all
# warnings of GCC. What it says of files in which it has found nothing is left out.
run_tidy() {
  xargs -P "$(nproc)" -n 1 clang-tidy -p "$1" --quiet --extra-arg=-Wno-unknown-warning-option \
    --checks="$2" 2>&1 | sed -E '/^[0-9]+ warnings? |^Error while processing /d'
}

case ${1:-} in
  format | fix-format)
    need_llvm clang-format
    how=(--dry-run -Werror)
    if [[ $1 == fix-format ]]; then how=(-i); fi
    sources | xargs clang-format "${how[@]}"
    ;;
  scripts)
    need_tool shellcheck
    { echo dev && echo .ci/run && find help tests -name '*.sh'; } |
      xargs shellcheck --external-sources --source-path=SCRIPTDIR
    ;;
  tidy)
    need_llvm clang-tidy
    # The analyzer is spared the tests: following the paths through their macros takes ten times as long as all
    # the rest, and the sanitizers see every test run.
    compiled "$2" | grep -v '_test\.cpp$' | run_tidy "$2" ''
    compiled "$2" | grep '_test\.cpp$' | run_tidy "$2" '-clang-analyzer-*'
    ;;
  *)
    echo "usage: tests/lint.sh format | fix-format | scripts | tidy BUILD" >&2
    exit 2
    ;;
esac
