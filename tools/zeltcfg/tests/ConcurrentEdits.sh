#!/bin/sh
# Starts PROCESSES loops side by side, each adding EDITS entries, one command
# at a time, to the list LIST of FILE with the tool (TOOL...), and waits for
# all of them. Entry e of loop p is "process p edit e". COMMAND is add (zeltcfg
# add) or patch (a JSON Patch that appends, from standard input). Exits 1 when
# any command failed.
#
#   ConcurrentEdits.sh PROCESSES EDITS FILE LIST COMMAND TOOL...
processes=$1 edits=$2 file=$3 list=$4 command=$5
shift 5
pids=
process=1
while [ "$process" -le "$processes" ]; do
    (
        edit=1
        while [ "$edit" -le "$edits" ]; do
            # A wait long enough that no command gives up, however slow the
            # machine: the test counts entries, never time.
            if [ "$command" = patch ]; then
                printf '[ { "op": "add", "path": "%s/-", "value": "process %s edit %s" } ]' \
                    "$list" "$process" "$edit" | "$@" patch --wait 3600 "$file" - || exit 1
            else
                "$@" add --wait 3600 "$file" "$list" "process $process edit $edit" || exit 1
            fi
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
