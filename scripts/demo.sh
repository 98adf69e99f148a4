#!/usr/bin/env bash
# Runs the example camera and lets the example client visit it twice, plain and enciphered. The client gets the port
# for searches alone and finds the rest. In each visit two users log in. Both transcripts go to standard output, and
# behind them the frames that the plain visit received, and a roll call of all messages. Exit status 0 only if the
# camera, both visits, the splitting into frames and the roll call ended with 0; ends within 25 seconds.
#
# usage: demo.sh BUILD_DIR
set -u

if [ $# -ne 1 ]; then
    echo "usage: demo.sh BUILD_DIR" >&2
    exit 2
fi

programs=
for folder in "$1/examples" "$1/bin" "$1"; do
    if [ -x "$folder/camera" ] && [ -x "$folder/client" ] && [ -x "$folder/frames" ]; then
        programs=$folder
        break
    fi
done
if [ -z "$programs" ]; then
    echo "demo: no camera, client and frames in $1; build them first" >&2
    exit 1
fi

scratch=$(mktemp -d) || exit 1
camera=
cleanUp()
{
    [ -n "$camera" ] && kill "$camera" 2>/dev/null
    rm -rf "$scratch"
}
trap cleanUp EXIT

mkfifo "$scratch/transcript" || exit 1
timeout 18 "$programs/camera" 0 --clients 4 --idle 5 >"$scratch/transcript" &
camera=$!
exec 3<"$scratch/transcript"

if ! IFS= read -r -t 3 line <&3; then
    echo "demo: the camera doesn't start" >&2
    exit 1
fi
echo "$line"
port=${line##*:}
cat <&3 &
relay=$!

status=0
timeout 7 "$programs/client" "$port" --record "$scratch/received" || status=1
timeout 7 "$programs/client" "$port" --cipher || status=1
wait "$camera" || status=1
camera=
wait "$relay"
timeout 3 "$programs/frames" "$scratch/received" || status=1
timeout 5 "$programs/roll_call" || status=1

if [ $status -eq 0 ]; then
    echo "demo: every exchange went as expected"
else
    echo "demo: FAILED"
fi
exit $status
