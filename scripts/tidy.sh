#!/usr/bin/env bash
# clang-tidy over the project's own sources (libsrc/, tools/, samples/) as a build folder compiles them, with
# the checks of .clang-tidy (clang's own warnings among them); any finding fails.
#
#   tidy.sh BUILD_DIR
#
# BUILD_DIR must be configured with CMAKE_EXPORT_COMPILE_COMMANDS=ON and built, since its dependency records
# name the headers each source includes. A source found clean is remembered under a hash of everything its
# result depends on: its compile command (with this clone's folder left out), the text of the source and of
# every header the build saw it include, .clang-tidy, and the versions of clang-tidy and of the compiler. While
# that hash stays the same the source is not checked again; any change to one of them checks it anew. The
# hashes live in $VISTRAL_TIDY_CACHE (default ~/.cache/vistral-tidy); VISTRAL_TIDY_CACHE= checks every source.
set -euo pipefail

root=$(cd "$(dirname "$0")/.." && pwd)
die() {
  echo "tidy: $*" >&2
  exit 1
}
[ $# -eq 1 ] || die "usage: $0 BUILD_DIR"
build=$(cd "$1" && pwd)
commands=$build/compile_commands.json
[ -f "$commands" ] || die "$commands is missing: configure $1 with -DCMAKE_EXPORT_COMPILE_COMMANDS=ON"
cache=${VISTRAL_TIDY_CACHE-${XDG_CACHE_HOME:-$HOME/.cache}/vistral-tidy}
jobs=2

# One line per source of ours: source, object (relative to BUILD_DIR, from the command's -o), compile
# command. CMake writes one field per line, which is all this reads.
entries=$(awk -v root="$root" '
  function value(line) { sub(/^[^:]*: "/, "", line); sub(/",?$/, "", line); return line }
  /^  "command":/ { command = value($0) }
  /^  "file":/ { file = value($0) }
  /^}/ {
    output = command; sub(/.* -o /, "", output); sub(/ .*/, "", output)
    if (index(file, root "/") == 1 && file ~ /\/(libsrc|tools|samples)\/.*\.cpp$/)
      printf "%s\t%s\t%s\n", file, output, command
    file = command = ""
  }' "$commands" | sort -u)
[ -n "$entries" ] || die "$commands lists no source under libsrc/, tools/ or samples/"

# The hash of each source's inputs, from the dependency records of the build (ninja -t deps).
declare -A key_of
if [ -n "$cache" ]; then
  mkdir -p "$cache"
  work=$(mktemp -d)
  # shellcheck disable=SC2064 # the folder is known now
  trap "rm -rf '$work'" EXIT
  {
    clang-tidy --version
    c++ --version
    cat "$root/.clang-tidy"
  } >"$work/common"
  ninja -C "$build" -t deps >"$work/deps" 2>/dev/null || true
  # Each header is hashed once, however many sources include it; then each object's list of (hash, path),
  # the path without this clone's folder, goes to a file of its own.
  awk '/^    / { print substr($0, 5) }' "$work/deps" | sort -u |
    (cd "$build" && xargs -r -d '\n' sha256sum 2>/dev/null || true) >"$work/hashes"
  mkdir "$work/in"
  awk -v root="$root" -v out="$work/in" '
    FNR == NR { hash[substr($0, 67)] = substr($0, 1, 64); next }
    /^[^ ]/ { file = $1; sub(/:$/, "", file); gsub(/\//, "_", file); file = out "/" file; next }
    /^    / {
      dep = substr($0, 5); path = dep
      while ((at = index(path, root)) > 0) path = substr(path, 1, at - 1) "." substr(path, at + length(root))
      print (dep in hash ? hash[dep] : "unreadable"), path > file
    }' "$work/hashes" "$work/deps"
  while IFS=$'\t' read -r file output command; do
    list=$work/in/${output//\//_}
    [ -f "$list" ] || continue  # not built: checked, and not remembered
    key_of[$file]=$( {
      cat "$work/common"
      echo "${command//$root/.}"
      cat "$list"
    } | sha256sum | cut -d' ' -f1)
  done <<<"$entries"
fi

# Sources whose hash is not remembered, each with the file that remembers it once it is found clean.
todo=()
clean=0
while IFS=$'\t' read -r file _; do
  key=${key_of[$file]:-}
  if [ -n "$key" ] && [ -f "$cache/$key" ]; then
    clean=$((clean + 1))
    continue
  fi
  todo+=("$file" "${key:+$cache/$key}")
done <<<"$entries"
echo "tidy: $(($(wc -l <<<"$entries"))) sources; $clean unchanged since found clean, $((${#todo[@]} / 2)) to check"
[ ${#todo[@]} -gt 0 ] || exit 0

# shellcheck disable=SC2016 # expanded by the inner shell
printf '%s\0' "${todo[@]}" | xargs -0 -n2 -P"$jobs" bash -c '
  # clang counts the warnings it suppressed in system headers; only findings are worth a line.
  clang-tidy -p "$0" --quiet --warnings-as-errors="*" "$1" 2>&1 | grep -vE "^[0-9]+ warnings? generated\.$"
  [ "${PIPESTATUS[0]}" -eq 0 ] || exit 1
  [ -z "$2" ] || : >"$2"' "$build" || die "findings above"
