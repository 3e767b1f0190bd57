#!/usr/bin/env bash
# The kind-202 dissector against the library: tshark reads recordings of every PDU class (both draw layouts)
# and of hostile images with the dissector, and every field it shows must be the line the library's own dump
# (through vistralInspect) shows for the same PDU. A dissector with one offset moved must fail the same check.
#
#   dissectorCheck.sh VISTRAL_INSPECT TRAFFIC_SAMPLE DISSECTOR.lua WORKDIR
# Exit 77 (skipped) when tshark is missing.
set -euo pipefail
inspect=$1 sample=$2 dissector=$3 work=$4
command -v tshark >/dev/null 2>&1 || { echo "tshark is not installed: skipped"; exit 77; }
rm -rf "$work" && mkdir -p "$work"
"$sample" "$work/every.pcapng"
"$sample" "$work/hostile.pcapng" --hostile

# "N<TAB>dump line" for every PDU: from the inspector's text output, and from tshark's packet details.
library() {
  "$inspect" "$1" 2>/dev/null | awk '/^[^ ].* packet [0-9]+ at byte /{for(i=1;i<=NF;i++) if($i=="packet") n=$(i+1); next}
                                    /^  text: /{next} {print n "\t" substr($0, 3)}' || true
}
dissected() {
  tshark -n -X lua_script:"$2" -r "$1" -V -O vistral 2>"$work/tshark.err" |
    awk '/^Frame [0-9]+:/{n=$2; sub(":", "", n); inside=0; next}
         /^Vistral control PDU/{inside=1; next} /^[^ ]/{inside=0}
         inside && /^ *\[truncated\]/ {sub(/^ *\[truncated\]/, ""); print n "\t" $0; next}
         inside && /^    / && !/^ *\[/ {print n "\t" substr($0, 5)}'
  if grep -q "Lua: Error" "$work/tshark.err"; then cat "$work/tshark.err" >&2; return 1; fi
}

status=0
for capture in every hostile; do
  # tshark cuts an item's text at about 240 bytes (hostile numbers print longer): compare what it keeps.
  library "$work/$capture.pcapng" | cut -c1-200 >"$work/$capture.library"
  dissected "$work/$capture.pcapng" "$dissector" | cut -c1-200 >"$work/$capture.all"
  # The inspector leaves out images that are not whole (it reports them); compare the packets it showed.
  awk -F'\t' 'NR==FNR{shown[$1]=1; next} shown[$1]' "$work/$capture.library" "$work/$capture.all" \
    >"$work/$capture.dissected"
  if ! diff -u "$work/$capture.library" "$work/$capture.dissected" >"$work/$capture.diff"; then
    echo "the dissector and the library differ on $capture.pcapng:"
    head -40 "$work/$capture.diff"
    status=1
  fi
  packets=$(cut -f1 "$work/$capture.library" | sort -u | wc -l)
  echo "$capture.pcapng: $packets PDUs, $(wc -l <"$work/$capture.library") dump lines compared"
done
[ "$(cut -f1 "$work/every.library" | sort -u | wc -l)" -ge 30 ] || { echo "too few PDUs compared"; status=1; }

# A dissector with the absolute PDU's location one byte off must not pass.
sed 's/^L.absolute = {location=\([0-9]*\)/L.absolute = {location=1\1/' "$dissector" >"$work/wrong.lua"
cmp -s "$dissector" "$work/wrong.lua" && { echo "could not make the wrong dissector"; exit 1; }
dissected "$work/every.pcapng" "$work/wrong.lua" >"$work/wrong.dissected"
if diff -q "$work/every.library" "$work/wrong.dissected" >/dev/null; then
  echo "a dissector with a wrong offset passed the check"
  status=1
fi
exit $status
