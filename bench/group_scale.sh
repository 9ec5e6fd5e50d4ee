#!/usr/bin/env bash
# Times a data group of many files: add them all in one call, list them, and
# remove every other one. Past 65,534 files the group's item count needs the
# archive's count escape, so the default count crosses it; the list read back
# must hold every file.
#
# usage: bench/group_scale.sh [COUNT]     (default 65600)
#   OPROC names the binary (default build/oproc beside this script).
set -u
here=$(cd "$(dirname "$0")" && pwd)
count=${1:-65600}
oproc=$(realpath "${OPROC:-$here/../build/oproc}")
[ -x "$oproc" ] || { echo "no oproc at $oproc (set OPROC)" >&2; exit 2; }

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
"$oproc" sample "$work/sample" --reps 1 --horizon 5 >/dev/null || exit 1
# Hard links: distinct paths to a few small files, so the files cost no disk
# and little time to make, while each is still a separate entry of the group.
# A file takes at most 65,000 links on ext4, hence a copy per 30,000.
mkdir "$work/files"
python3 - "$work" "$count" <<'PY' || exit 1
import os, shutil, sys
work, count = sys.argv[1], int(sys.argv[2])
for i in range(count):
    source = os.path.join(work, "sample", "waits-%d.dat" % (i // 30000))
    if i % 30000 == 0:
        shutil.copyfile(os.path.join(work, "sample", "waits.dat"), source)
    os.link(source, os.path.join(work, "files", "f%d.dat" % i))
PY

# Relative names keep the one command line short enough for the kernel.
cd "$work/files" || exit 1
"$oproc" group new ../g.dgr >/dev/null || exit 1

seconds() { /usr/bin/time -f %e -o "$work/t" "$@" >"$work/out" 2>"$work/err"; local rc=$?; cat "$work/t"; return $rc; }

names=()
for ((i = 0; i < count; ++i)); do names+=("f$i.dat"); done
add=$(seconds "$oproc" group add ../g.dgr "${names[@]}") || { cat "$work/err"; exit 1; }
added=$(wc -l <"$work/out")
list=$(seconds "$oproc" group list ../g.dgr) || { cat "$work/err"; exit 1; }
listed=$(wc -l <"$work/out")
odd=()
for ((n = 1; n <= count; n += 2)); do odd+=("$n"); done
remove=$(seconds "$oproc" group remove ../g.dgr "${odd[@]}") || { cat "$work/err"; exit 1; }
left=$(wc -l <"$work/out")

printf '%-8s %8s s  %6d lines\n' add "$add" "$added" list "$list" "$listed" remove "$remove" "$left"
status=0
[ "$added" -eq "$count" ] && [ "$listed" -eq "$count" ] && [ "$left" -eq $((count / 2)) ] ||
    { echo "group_scale: a list lost files" >&2; status=1; }
exit $status
