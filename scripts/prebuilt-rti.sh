#!/usr/bin/env bash
# The HLA runtimes that the RTI scenarios run on, taken from prebuilt archives instead of built by hand.
#
#   prebuilt-rti.sh unpack                     unpacks OpenRTI and CERTI into build/rti/ (openrti/, certi/)
#   prebuilt-rti.sh configure openrti [ARGS]   the test preset's build folder (build/test) against OpenRTI
#   prebuilt-rti.sh configure certi [ARGS]     build/test-certi: the test preset's settings against CERTI
#   prebuilt-rti.sh scenarios DIR [CTEST ARGS]  builds only the programs that the RTI scenarios of build
#                                              folder DIR run (tests labelled rti...), then runs them
#
# The archives are looked for in $VISTRAL_PREBUILT_RTI_DIR, else in ../shared/rti beside the clone; without
# them the script says so and exits with status 3. Each runtime is unpacked again only when its archive
# changed. ARGS go to cmake as they are. Both HLA editions of a runtime come from one prefix: the HLA 1.3
# root and the IEEE 1516-2010 root are both set to it.
set -euo pipefail

root=$(cd "$(dirname "$0")/.." && pwd)
archives=${VISTRAL_PREBUILT_RTI_DIR:-$root/../shared/rti}
dest=$root/build/rti

die() {
  echo "prebuilt-rti: $1" >&2
  exit "${2:-1}"
}

archive_of() {
  local found
  found=$(find "$archives" -maxdepth 1 -name "$1-*.tar.gz" 2>/dev/null | sort | tail -1)
  [ -n "$found" ] || die "no $1 archive ($1-*.tar.gz) in $archives" 3
  echo "$found"
}

# Unpacks one runtime into build/rti/<name>, unless the archive unpacked there last is this very one.
unpack_one() {
  local name=$1 archive stamp
  archive=$(archive_of "$name")
  stamp="$(basename "$archive") $(stat -c '%s %Y' "$archive")"
  if [ -f "$dest/$name.unpacked" ] && [ "$(cat "$dest/$name.unpacked")" = "$stamp" ] && [ -d "$dest/$name" ]; then
    return
  fi
  rm -rf "${dest:?}/$name" "$dest/$name.unpacked"
  mkdir -p "$dest"
  tar xzf "$archive" -C "$dest"
  [ -d "$dest/$name" ] || die "$archive holds no $name/ folder"
  echo "$stamp" >"$dest/$name.unpacked"
  echo "prebuilt-rti: $(basename "$archive") unpacked into build/rti/$name"
}

unpack() {
  [ -d "$archives" ] || die "no folder of prebuilt RTIs at $archives" 3
  unpack_one openrti
  unpack_one certi
}

configure() {
  local name=${1:-} dir
  shift || true
  case $name in
    openrti) dir=build/test ;;
    certi) dir=build/test-certi ;;
    *) die "usage: $0 configure openrti|certi [CMAKE ARGS]" ;;
  esac
  unpack
  cd "$root"
  cmake --preset test -B "$dir" --no-warn-unused-cli -DVISTRAL_RTI13_ROOT="$dest/$name" -DVISTRAL_RTI1516E_ROOT="$dest/$name" "$@"
}

# The RTI scenarios of a build folder, with only their own programs built: a second configuration (the
# other RTI) then costs the library and those programs, not every test.
scenarios() {
  local dir=$1 names programs=() name program
  shift
  names=$(ctest --test-dir "$dir" -N -L rti | sed -n 's/^ *Test *#[0-9]*: //p')
  [ -n "$names" ] || die "$dir has no RTI scenarios: is it configured with an RTI?"
  # Every argument of a scenario's command that is a program of this build, whether the command runs it
  # itself or hands it to a script.
  local targets
  targets=$(ninja -C "$dir" -t targets all | cut -d: -f1)
  while IFS=$'\t' read -r name program; do
    grep -qxF "$name" <<<"$names" || continue
    case $program in "$dir"/*) ;; *) continue ;; esac
    program=${program#"$dir"/}
    grep -qxF "$program" <<<"$targets" && programs+=("$program")
  done < <(find "$dir" -name CTestTestfile.cmake -exec awk '
    /^add_test\(\[=\[/ {
      name = $0; sub(/^add_test\(\[=\[/, "", name); sub(/\]=\].*/, "", name)
      rest = $0
      while (match(rest, /"[^"]*"/)) {
        print name "\t" substr(rest, RSTART + 1, RLENGTH - 2)
        rest = substr(rest, RSTART + RLENGTH)
      }
    }' {} +)
  [ ${#programs[@]} -gt 0 ] || die "no program of the RTI scenarios of $dir is built here"
  mapfile -t programs < <(printf '%s\n' "${programs[@]}" | sort -u)
  cmake --build "$dir" --target "${programs[@]}"
  # Side by side like the main suite: each scenario has a federation of its own on the shared servers.
  ctest --test-dir "$dir" -L rti --output-on-failure --parallel "$(nproc)" "$@"
}

case ${1:-} in
  scenarios) [ $# -ge 2 ] || die "usage: $0 scenarios DIR [CTEST ARGS]"; shift; scenarios "$(cd "$1" && pwd)" "${@:2}" ;;
  unpack) [ $# -eq 1 ] || die "usage: $0 unpack"; unpack ;;
  configure) shift; configure "$@" ;;
  *) die "usage: $0 unpack | configure openrti|certi [CMAKE ARGS] | scenarios DIR [CTEST ARGS]" ;;
esac
