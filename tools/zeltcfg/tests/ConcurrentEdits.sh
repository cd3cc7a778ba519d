#!/bin/sh
# Starts PROCESSES loops side by side, each adding EDITS entries, one command
# at a time, to the list LIST of FILE with the tool (TOOL...), and waits for
# all of them. Entry e of loop p is "process p edit e". Exits 1 when any
# command failed.
#
#   ConcurrentEdits.sh PROCESSES EDITS FILE LIST TOOL...
processes=$1 edits=$2 file=$3 list=$4
shift 4
pids=
process=1
while [ "$process" -le "$processes" ]; do
    (
        edit=1
        while [ "$edit" -le "$edits" ]; do
            # A wait long enough that no command gives up, however slow the
            # machine: the test counts entries, never time.
            "$@" add --wait 3600 "$file" "$list" "process $process edit $edit" || exit 1
            edit=$((edit + 1))
        done
    ) &
    pids="$pids $!"
    process=$((process + 1))
done
status=0
for pid in $pids; do
    wait "$pid" || status=1
done
exit "$status"
