#!/usr/bin/env bash
# The README's "Looking at the traffic" outputs are what the inspector and tshark with the dissector print:
# the commands of its first sh block are run (on the built programs) and their outputs compared with the two
# text blocks that follow it.
#
#   readmeTraffic.sh README TRAFFIC_SAMPLE VISTRAL_INSPECT DISSECTOR.lua WORKDIR
set -euo pipefail
readme=$1 sample=$2 inspect=$3 dissector=$4 work=$5
command -v tshark >/dev/null 2>&1 || { echo "tshark is not installed: skipped"; exit 77; }
rm -rf "$work" && mkdir -p "$work/build/default"
# The n-th text block of the section.
block() {
  awk -v want="$1" '/^## /{inside = ($0 == "## Looking at the traffic")} inside && /^```text/{n++; on = (n == want); next}
                    on && /^```/{on = 0} on' "$readme"
}
block 1 >"$work/inspect.expected"
block 2 >"$work/tshark.expected"
[ -s "$work/inspect.expected" ] && [ -s "$work/tshark.expected" ] || { echo "the README's outputs are missing"; exit 1; }
cd "$work"
"$sample" build/default/every-class.pcapng
"$inspect" --command 5 build/default/every-class.pcapng >inspect.actual
tshark -r build/default/every-class.pcapng -X lua_script:"$dissector" -V -O vistral -Y "frame.number == 3" \
  2>/dev/null >tshark.actual
# tshark ends the packet with an empty line, which the README leaves out.
sed -i '${/^$/d}' tshark.actual
diff -u inspect.expected inspect.actual
diff -u tshark.expected tshark.actual
echo "the README shows what the programs print"
