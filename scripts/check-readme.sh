#!/usr/bin/env bash
# Keeps README.md true by running what it shows.
#
#   check-readme.sh examples PREFIX   builds every ```cpp block of README.md and of the guide (docs/*.md)
#                                     against the package installed under PREFIX
#                                     (find_package(VistralControl)) and runs each one that has a main
#   check-readme.sh commands          runs every ```sh block, in the README's order, in a scratch clone of
#                                     the tree as it stands (committed, changed and new files; no build/)
#
# The README's fenced blocks are its contract with this script: ```cpp is one complete translation unit,
# ```sh is what a reader types at the top of a fresh clone (each block in a shell of its own, stopping at the
# first failing line), ```text is shown only. A block of any other kind is an error, so that nothing the
# reader is told to run escapes the check. Code written inline in prose is not run: commands go in blocks.
set -euo pipefail

# Blocks left out of the commands run: a pattern over the block's text, and why. Each pattern must still
# match some block (a rule that matches nothing has gone stale); the blocks left out are syntax-checked only.
skip_rules=(
  'prebuilt-rti\.sh'
  ".ci/run runs these very steps on the tree just before, on both prebuilt RTIs"
  'VISTRAL_RTI13_ROOT|ctest .*-L rti'
  "needs an HLA 1.3 RTI installed by the reader; .ci/run runs the RTI scenarios on the prebuilt ones"
  'cmake --workflow --preset test'
  ".ci/run runs this very command on the tree just before; a second sanitizer build would double its time"
  '--preset bench'
  "a Release build of the benchmarks and a run of several minutes"
  '--preset fuzz'
  "a second, clang-built copy of the library, and ten minutes of fuzzing"
  'scripts/fuzz\.sh'
  "a clang-built copy of the library without sanitizers, and minutes to hours of fuzzing"
)

root=$(cd "$(dirname "$0")/.." && pwd)
readme=$root/README.md
jobs=2

die() {
  echo "check-readme: $*" >&2
  exit 1
}

# Writes each block of the given kind to DIR/NAME_L<line>.EXT (line: the opening fence's line in the README),
# or, for the guide's pages named after the first four arguments, to DIR/NAME_docs.<page>_L<line>.EXT.
extract() {
  local kind=$1 dir=$2 name=$3 ext=$4 page
  shift 4
  mkdir -p "$dir"
  for page in "$readme" "$@"; do
    local rel=${page#"$root"/} stem=$name
    [ "$rel" = README.md ] || { stem=${rel%.md}; stem=${name}_${stem//\//.}; }
    extract_page "$kind" "$dir" "$stem" "$ext" "$rel" "$page"
  done
}
extract_page() {
  local kind=$1 dir=$2 name=$3 ext=$4 rel=$5 page=$6
  awk -v kind="$kind" -v dir="$dir" -v name="$name" -v ext="$ext" -v file="$rel" '
    fence && /^```[ \t]*$/ { fence = 0; if (out != "") close(out); out = ""; next }
    fence { if (out != "") print > out; next }
    /^```/ {
      info = substr($0, 4); sub(/^[ \t]+/, "", info); sub(/[ \t].*$/, "", info)
      if (info != "cpp" && info != "sh" && info != "text") {
        printf "%s:%d: fenced block of kind \"%s\": use cpp, sh or text\n", file, NR, info > "/dev/stderr"
        bad = 1
      }
      fence = 1; start = NR
      out = (info == kind) ? sprintf("%s/%s_L%d.%s", dir, name, NR, ext) : ""
      if (out != "") printf "" > out
      next
    }
    END {
      if (fence) { printf "%s:%d: block never closed\n", file, start > "/dev/stderr"; bad = 1 }
      exit bad
    }' "$page" || die "$rel has blocks this script cannot check"
}

# Blocks in page order (README first), into the array named by $3 (file names carry the block's line number).
blocks() {
  mapfile -t "$3" < <(find "$1" -name "$2" |
    awk '{ n = $0; sub(/.*_L/, "", n); sub(/\..*/, "", n); p = $0; sub(/_L[0-9]+\.[a-z]+$/, "", p)
           print p "\t" n "\t" $0 }' | sort -k1,1 -k2,2n | cut -f 3)
}
# The page a block came from: README.md, or docs/<page>.md for NAME_docs.<page>_L<line>.
source_of() {
  local base=${1##*/}
  base=${base%_L*}
  case $base in
    *_*) base=${base#*_}; echo "${base//.//}.md" ;;
    *) echo README.md ;;
  esac
}
line_of() {
  local base=${1##*_L}
  echo "${base%.*}"
}

check_examples() {
  local prefix=$1 dir=$root/build/readme-examples
  [ -d "$prefix" ] || die "no installed package at $prefix"
  rm -rf "$dir"
  extract cpp "$dir/src" example cpp "$root"/docs/*.md
  local sources src
  blocks "$dir/src" 'example_*.cpp' sources
  [ ${#sources[@]} -gt 0 ] || die "README.md has no cpp block"

  # One target per block: a program when it has a main, else an object library (compiled, not linked).
  {
    echo 'cmake_minimum_required(VERSION 3.25)'
    echo 'project(readmeExamples LANGUAGES CXX)'
    echo 'set(CMAKE_CXX_STANDARD 17)'
    echo 'set(CMAKE_CXX_STANDARD_REQUIRED ON)'
    echo 'set(CMAKE_CXX_EXTENSIONS OFF)'
    echo 'find_package(VistralControl REQUIRED)'
    for src in "${sources[@]}"; do
      local target
      target=$(basename "$src" .cpp)
      if grep -Eq '^int main\(' "$src"; then
        echo "add_executable($target src/$target.cpp)"
      else
        echo "add_library($target OBJECT src/$target.cpp)"
      fi
      echo "target_link_libraries($target PRIVATE VistralControl::vistralControlToolkitHLA13)"
      # Examples of the viewer emulator link its library too.
      if grep -q '"vistralemulator/' "$src"; then
        echo "target_link_libraries($target PRIVATE VistralControl::vistralEmulator)"
      fi
      echo "target_compile_options($target PRIVATE -Wall -Wextra -Werror)"
    done
  } >"$dir/CMakeLists.txt"

  cmake -S "$dir" -B "$dir/build" -G Ninja -DCMAKE_PREFIX_PATH="$prefix" >"$dir/configure.log" 2>&1 ||
    { cat "$dir/configure.log"; die "the examples' project does not configure against $prefix"; }
  if ! cmake --build "$dir/build" -j"$jobs" -- -k 0 >"$dir/build.log" 2>&1; then
    # Name each block that failed by its README line, then show the compiler's words.
    grep -o 'example_[A-Za-z0-9._-]*L[0-9]*\.cpp:[0-9]*:[0-9]*: error:.*' "$dir/build.log" |
      awk -F: '{ msg = $0; sub(/^[^:]*:[^:]*:[^:]*: /, "", msg); page = $1; sub(/_L[0-9]+\.cpp$/, "", page)
                 sub(/^example_?/, "", page); gsub(/\./, "/", page); page = (page == "") ? "README" : page
                 line = $1; sub(/.*_L/, "", line)
                 printf "%s.md:%d: %s\n", page, line + $2, msg }' | head -20 >&2
    tail -40 "$dir/build.log" >&2
    die "a README example does not compile"
  fi

  local failed=0 count=0
  for src in "${sources[@]}"; do
    local target
    target=$(basename "$src" .cpp)
    count=$((count + 1))
    if [ ! -x "$dir/build/$target" ]; then
      echo "$(source_of "$src"):$(line_of "$src"): compiles (no main)"
      continue
    fi
    local rc=0
    (cd "$dir/build" && timeout 60 "./$target" </dev/null >"$target.out" 2>&1) || rc=$?
    if [ "$rc" -eq 0 ]; then
      echo "$(source_of "$src"):$(line_of "$src"): compiles and runs"
    else
      echo "$(source_of "$src"):$(line_of "$src"): the program fails (exit $rc); its output:" >&2
      tail -20 "$dir/build/$target.out" >&2
      failed=$((failed + 1))
    fi
  done
  [ "$failed" -eq 0 ] || die "$failed of $count examples fail"
}

# A fresh clone with the working tree's changes on top, so that what is checked is what would be committed.
# Only what differs from the last commit is copied over: the clone already has the rest.
scratch_clone() {
  local dest=$1
  git clone --quiet --no-hardlinks "$root" "$dest"
  (cd "$root" && git diff -z --name-only HEAD && git ls-files -z --others --exclude-standard) |
    while IFS= read -r -d '' f; do
      if [ -e "$root/$f" ]; then
        mkdir -p "$dest/$(dirname "$f")"
        cp -p "$root/$f" "$dest/$f"
      else
        rm -f "$dest/$f"
      fi
    done
}

check_commands() {
  local work
  work=$(mktemp -d)
  # shellcheck disable=SC2064 # the directory is known now, and the local is gone when the trap runs
  trap "rm -rf '$work'" EXIT
  extract sh "$work/blocks" command sh
  local files
  blocks "$work/blocks" 'command_L*.sh' files
  [ ${#files[@]} -gt 0 ] || die "README.md has no sh block"

  # Which blocks stay out, decided before anything runs; a rule that leaves out nothing fails at once.
  local i file line reasons=()
  for ((i = 0; i < ${#skip_rules[@]}; i += 2)); do
    local matched=0
    for file in "${files[@]}"; do
      grep -Eq -- "${skip_rules[i]}" "$file" && matched=1
    done
    [ "$matched" -eq 1 ] || die "the rule '${skip_rules[i]}' leaves out no README block: remove it"
  done
  for file in "${files[@]}"; do
    line=$(line_of "$file")
    bash -n "$file" || die "README.md:$line: not valid shell"
    local reason=""
    for ((i = 0; i < ${#skip_rules[@]}; i += 2)); do
      if grep -Eq -- "${skip_rules[i]}" "$file"; then
        reason=${skip_rules[i + 1]}
        break
      fi
    done
    reasons+=("$reason")
  done

  scratch_clone "$work/clone"
  local n start
  for ((n = 0; n < ${#files[@]}; n++)); do
    file=${files[n]}
    line=$(line_of "$file")
    if [ -n "${reasons[n]}" ]; then
      echo "README.md:$line: left out: ${reasons[n]}"
      continue
    fi
    start=$SECONDS
    if ! (cd "$work/clone" && timeout 900 bash -e -o pipefail "$file" </dev/null >"$work/out" 2>&1); then
      echo "README.md:$line: FAILED in a fresh clone:" >&2
      sed 's/^/    /' "$file" >&2
      echo "  its last output:" >&2
      tail -30 "$work/out" >&2
      die "a README command does not work as written"
    fi
    echo "README.md:$line: works ($((SECONDS - start)) s): $(head -1 "$file")"
  done
}

case ${1:-} in
  examples) [ $# -eq 2 ] || die "usage: $0 examples PREFIX"; check_examples "$2" ;;
  commands) [ $# -eq 1 ] || die "usage: $0 commands"; check_commands ;;
  *) die "usage: $0 examples PREFIX | commands" ;;
esac
