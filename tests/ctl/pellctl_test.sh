#!/usr/bin/env bash
# Runs the real pellctl: prediction against an independent computation, sky from a receiver that
# speaks only NMEA (a replayed capture over TCP) and from the simulated one, settings export and
# import against rxsim over TCP, and the error exits.
# Usage: pellctl_test.sh PELLCTL DATA_DIR RXSIM
set -uo pipefail
pellctl=$1
data=$2
rxsim=$3
here=$(cd "$(dirname "$0")" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failures=0

fail() {
    echo "FAIL: $*" >&2
    failures=$((failures + 1))
}

# expect STATUS STDERR_PART -- ARGS...: exit status and a part of the one-line message.
expect() {
    local status=$1 part=$2
    shift 3
    "$pellctl" "$@" >"$work/out" 2>"$work/err"
    local got=$?
    [ "$got" -eq "$status" ] || fail "pellctl $*: exit $got, not $status"
    [ -z "$part" ] || grep -qF -- "$part" "$work/err" || fail "pellctl $*: no \"$part\" in: $(cat "$work/err")"
    [ "$status" -eq 0 ] || [ "$(wc -l <"$work/err")" -le 1 ] || fail "pellctl $*: more than one line"
}

# Starts the replay server on a capture; sets $port (a TCP port, or with --pty a device).
replay() {
    rm -f "$work/port"
    python3 "$here/replay_nmea.py" "$data/nmea/$1" "$work/received" "${@:2}" >"$work/port" &
    replay_pid=$!
    for _ in $(seq 50); do
        [ -s "$work/port" ] && break
        sleep 0.1
    done
    port=$(cat "$work/port")
}

# --- predict ---
yuma="$data/almanac/maast_alm01jan2020.yuma.txt"
for observer in 47.3769,8.5417,408 -33.8688,151.2093,58 78.2232,15.6267,10; do
    "$pellctl" predict --almanac "$yuma" --at 2020-01-01T12:00:00Z --observer="$observer" --json \
        >"$work/predict.json" || fail "predict $observer: exit $?"
    python3 - "$data/almanac" "$work/predict.json" "$observer" <<'PY' || fail "predict $observer"
import json, sys
sys.path.insert(0, sys.argv[1])
import azel_reference as ref
out = json.loads(open(sys.argv[2], encoding="utf-8").read())
lat, lon, h = map(float, sys.argv[3].split(","))
sats = ref.read_yuma(sys.argv[1] + "/maast_alm01jan2020.yuma.txt")
# 2020-01-01T12:00:00Z in GPS seconds: 18 leap seconds then.
t = 2086 * 604800 + 3 * 86400 + 12 * 3600 + 18
assert [s["id"] for s in out["satellites"]] == ["G%d" % p for p in sorted(sats)], out
for s in out["satellites"]:
    az, el = ref.az_el(sats[int(s["id"][1:])], lat, lon, h, t)
    assert abs((s["azimuth"] - az + 180) % 360 - 180) <= 0.06, (s, az)
    assert abs(s["elevation"] - el) <= 0.06, (s, el)
    assert s["up"] == (s["elevation"] > 0), s
PY
done
"$pellctl" predict --almanac "$yuma" --at 2020-01-01T12:00:00Z --observer 47.3769,8.5417,408 \
    >"$work/predict.txt" || fail "predict text: exit $?"
[ "$(head -1 "$work/predict.txt")" = "sat      az     el" ] || fail "predict text header"
grep -qxE 'G2 +223\.4 +6\.6  up' "$work/predict.txt" || fail "predict text: G2 row"
grep -qxE 'G1 +102\.4 +-45\.4' "$work/predict.txt" || fail "predict text: G1 row"
[ "$(wc -l <"$work/predict.txt")" -eq 32 ] || fail "predict text: not 31 satellites"
# SEM reads the same way.
"$pellctl" predict --almanac "$data/almanac/gnsstk_test_input_sem387.al3" \
    --at 1987-06-01T00:00:00Z --observer 0,0,0 >"$work/sem.txt" || fail "predict SEM: exit $?"
[ "$(wc -l <"$work/sem.txt")" -eq 31 ] || fail "predict SEM: not 30 satellites"

printf 'ID: 01\nHealth: x\n' >"$work/broken.yuma"
expect 2 "broken.yuma" -- predict --almanac "$work/broken.yuma" --at 2020-01-01T12:00:00Z --observer 1,2,3
expect 2 "No such file" -- predict --almanac "$work/none" --at 2020-01-01T12:00:00Z --observer 1,2,3
expect 2 "--at takes" -- predict --almanac "$yuma" --at 2020-01-01T12:00:00 --observer 1,2,3
expect 2 "--observer takes" -- predict --almanac "$yuma" --at 2020-01-01T12:00:00Z --observer 91,0,0
expect 2 "needs --almanac" -- predict --at 2020-01-01T12:00:00Z --observer 1,2,3
expect 2 "unknown command" -- skies
expect 2 "Unknown simulator profile" -- sky --simulator=nope
expect 2 "--seconds takes" -- sky --simulator --seconds 0
expect 2 "--seconds takes" -- sky --simulator --seconds 2147484
expect 2 "Choose one receiver" -- sky --simulator --connect tcp://127.0.0.1:1
expect 0 "" -- --help
expect 0 "" -- sky --help
grep -qF -- "--seconds" "$work/out" || fail "sky --help tells no --seconds"

# --- sky from a receiver that speaks only NMEA ---
replay ublox-zed-f9p-nmea.log
"$pellctl" sky --connect "tcp://127.0.0.1:$port" --seconds 2 --json >"$work/sky.json" 2>"$work/err"
status=$?
wait "$replay_pid"
[ "$status" -eq 0 ] || fail "sky over TCP: exit $status: $(cat "$work/err")"
python3 - "$work/sky.json" "$work/received" <<'PY' || fail "sky over TCP: output"
import json, sys
epochs = [json.loads(line) for line in open(sys.argv[1], encoding="utf-8")]
assert len(epochs) > 20, len(epochs)
first = epochs[0]
assert first["utc"] == "2019-04-12T00:39:56Z" and first["fix"] == "standalone", first
assert abs(first["position"]["lat"] + 45.8775672) < 1e-6, first
ids = [s["id"] for s in first["satellites"]]
assert "G13" in ids and "R17" in ids, ids  # GLONASS 81 is slot 17
g13 = next(s for s in first["satellites"] if s["id"] == "G13")
assert g13 == {"id": "G13", "system": "GPS", "number": 13, "usi": 13, "azimuth": 124,
               "elevation": 37, "snr": {"0": 29}, "used": True}, g13
assert all(set(s) == set(g13) for e in epochs for s in e["satellites"])
received = open(sys.argv[2], encoding="utf-8").read().splitlines()
em = [l for l in received if "em,/cur/term,nmea/GGA;" in l]
dm = [l for l in received if "dm,/cur/term,nmea/GGA;" in l]
assert len(em) == 1 and len(dm) == 1 and received.index(em[0]) < received.index(dm[0]), received
PY

# The same over a serial line.
replay quectelLC79D.log --pty
"$pellctl" sky --serial "$port@115200" --seconds 2 --json >"$work/serial.json" 2>"$work/err" ||
    fail "sky over a serial line: exit $?: $(cat "$work/err")"
wait "$replay_pid"
[ "$(wc -l <"$work/serial.json")" -ge 1 ] || fail "sky over a serial line: no epoch"
grep -qF "em,/cur/term,nmea/GGA;" "$work/received" || fail "sky over a serial line: no request"

# Text, stopped by SIGINT: the stop line still goes out.
replay quectelLC79D.log
"$pellctl" sky --connect "127.0.0.1:$port" >"$work/sky.txt" 2>"$work/err" &
pellctl_pid=$!
sleep 1.5
kill -INT "$pellctl_pid"
wait "$pellctl_pid"
status=$?
wait "$replay_pid"
[ "$status" -eq 0 ] || fail "sky stopped by SIGINT: exit $status: $(cat "$work/err")"
grep -qE '^epoch [0-9]{4}-[0-9]{2}-[0-9]{2}T[0-9:]{8}Z  fix: ' "$work/sky.txt" ||
    fail "sky text: no header line"
grep -qE '^  sat  system +az +el  used  SNR' "$work/sky.txt" || fail "sky text: no column line"
grep -qE '^  [GRECSJI][0-9?]{2,3} +[A-Za-z]+ +(-|[0-9]+) +(-|-?[0-9]+)  (yes|no )' "$work/sky.txt" ||
    fail "sky text: no satellite row"
grep -qF "dm,/cur/term,nmea/GGA;" "$work/received" || fail "sky stopped by SIGINT: no stop line"

# The receiver goes away: the sky seen so far stays, the exit says so.
replay unicore-um621.log --close
expect 2 "lost the connection" -- sky --connect "tcp://127.0.0.1:$port" --json
wait "$replay_pid"
[ -s "$work/out" ] || fail "sky, connection lost: the epochs before it were not printed"
python3 -c 'import socket; s = socket.socket(); s.bind(("127.0.0.1", 0)); print(s.getsockname()[1])' \
    >"$work/port"
expect 2 "could not connect" -- sky --connect "tcp://127.0.0.1:$(cat "$work/port")"

# --- sky from the simulator: every constellation, one GLONASS satellite without its slot ---
"$pellctl" sky --simulator=marten --seconds 3 --json >"$work/sim.json" 2>"$work/err" ||
    fail "sky --simulator: exit $?: $(cat "$work/err")"
python3 - "$work/sim.json" <<'PY' || fail "sky --simulator: output"
import json, sys
epochs = [json.loads(line) for line in open(sys.argv[1], encoding="utf-8")]
assert len(epochs) >= 1, epochs
sky = epochs[-1]["satellites"]
systems = {s["system"] for s in sky}
assert systems >= {"GPS", "GLONASS", "Galileo", "BeiDou", "SBAS", "QZSS", "IRNSS"}, systems
assert [s["id"] for s in sky].count("R??") == 1, sky
assert any(s["used"] for s in sky) and not all(s["used"] for s in sky), sky
assert epochs[-1]["fix"] != "none", epochs[-1]
PY

# --- settings: export, import, print and set against rxsim over TCP ---
# Starts rxsim on a free port with a profile and its options; sets $target.
listen() {
    rm -f "$work/listen"
    "$rxsim" --listen 127.0.0.1:0 --profile "$@" >"$work/listen" &
    rxsim_pids+=("$!")
    for _ in $(seq 50); do
        [ -s "$work/listen" ] && break
        sleep 0.1
    done
    target="tcp://$(head -1 "$work/listen" | sed 's/^listening on //')"
}
rxsim_pids=()
trap 'kill "${rxsim_pids[@]}" 2>/dev/null; rm -rf "$work"' EXIT
cat >"$work/dict.xml" <<'XML'
<?xml version="1.0"?>
<Objects>
  <Object Name="Receiver" Attr="DONOTIMPORTBYDEFAULT">
    <Variable Name="Model" Type="qstring" Attr="READONLY"><VOXA Parameter="rcv/model"/></Variable>
  </Object>
  <Object Name="Positioning">
    <Variable Name="Mask" Type="integer"><VOXA Parameter="pos/elm"/></Variable>
    <Variable Name="Pdop" Type="float"><VOXA Parameter="pos/pdop"/></Variable>
    <Variable Name="Gps" Type="[boolean"><VOXA Parameter="pos/gps/sat" True="y" False="n"/></Variable>
    <Variable Name="Heading" Type="string"><VOXA Parameter="pos/hd/mode"/></Variable>
    <Variable Name="Baseline" Type="float"><VOXA Parameter="pos/hd/len"/></Variable>
  </Object>
  <Object Name="Network" Attr="DONOTEXPORTBYDEFAULT">
    <Variable Name="AccessPoint" Type="qstring"><VOXA Parameter="wlan/ap/name"/></Variable>
  </Object>
</Objects>
XML
settings=(--dictionary "$work/dict.xml")
listen pardo7
expect 0 "" -- set --connect "$target" pos/elm 12
expect 0 "" -- set --connect "$target" wlan/ap/name '"field \"7\", north"'
expect 0 "" -- export --connect "$target" --all "${settings[@]}" "$work/a.json"
[ ! -s "$work/out" ] || fail "export: a report without failures: $(cat "$work/out")"
expect 0 "" -- print --connect "$target" wlan/ap/name
[ "$(cat "$work/out")" = '"field \"7\", north"' ] || fail "print: $(cat "$work/out")"
for change in "pos/elm -- -3" "pos/pdop 7.5" "pos/gps/sat {n,y,y}" "pos/hd/mode on" \
    "wlan/ap/name \"\""; do
    # shellcheck disable=SC2086 # the words of one change
    expect 0 "" -- set --connect "$target" $change
done
expect 1 "value out of range" -- set --connect "$target" pos/elm 100
expect 0 "" -- export --connect "$target" --all "${settings[@]}" "$work/changed.json"
cmp -s "$work/a.json" "$work/changed.json" && fail "set changed nothing the export sees"
# Network is left out of an import by default too; --all brings it.
expect 0 "" -- import --connect "$target" --all "${settings[@]}" "$work/a.json"
printf 'Positioning/%s\tSuccessfully Imported\n' Mask Pdop Gps Heading Baseline >"$work/rows"
printf 'Network/AccessPoint\tSuccessfully Imported\n' >>"$work/rows"
cmp -s "$work/rows" "$work/out" || fail "import rows: $(cat "$work/out")"
expect 0 "" -- export --connect "$target" --all "${settings[@]}" "$work/b.json"
cmp -s "$work/a.json" "$work/b.json" || fail "round trip: $(cat "$work/a.json") / $(cat "$work/b.json")"
# The same with the shipped dictionary, found beside the library, over all it names.
expect 0 "" -- export --connect "$target" --all "$work/full.json"
expect 0 "" -- set --connect "$target" pos/elm 7
expect 0 "" -- import --connect "$target" --all "$work/full.json"
expect 0 "" -- export --connect "$target" --all "$work/full2.json"
cmp -s "$work/full.json" "$work/full2.json" || fail "round trip with the shipped dictionary"

# A receiver without heading or Wi-Fi: listed as not applying, the rest written.
listen lumen7
expect 1 "" -- import --connect "$target" --all "${settings[@]}" "$work/a.json"
for variable in Positioning/Heading Positioning/Baseline Network/AccessPoint; do
    grep -qxF "$variable	This variable does not apply to the receiver." "$work/out" ||
        fail "import into lumen7: $variable: $(cat "$work/out")"
done
grep -qxF "Positioning/Mask	Successfully Imported" "$work/out" || fail "import into lumen7: Mask"
# Its own export leaves them out without a failure.
expect 0 "" -- export --connect "$target" --all "${settings[@]}" "$work/lumen.json"

echo 'not json' >"$work/broken.json"
# A bare --simulator before the file is the first profile; a profile's name is joined to it.
expect 2 "The specified file cannot be parsed." -- import --simulator "${settings[@]}" "$work/broken.json"
expect 0 "" -- export --simulator pardo7 "${settings[@]}" "$work/simulated.json"
grep -qF '"Heading":' "$work/simulated.json" || fail "export --simulator pardo7: not the Pardo7"
expect 2 "Invalid file format" -- export --connect "$target" --dictionary "$work/broken.json" "$work/x.json"
expect 2 "cannot be written" -- export --connect "$target" "${settings[@]}" "$work/none/x.json"
# Hostile values are refused before anything is sent; the receiver keeps its values.
expect 0 "" -- print --connect "$target" pos/pdop
pdop=$(cat "$work/out")
for value in '7;set,pos/pdop,3' '"7;set,pos/pdop,3' $'7\rset,pos/pdop,3' $'7\nset,pos/pdop,3'; do
    expect 2 "Building the receiver command" -- set --connect "$target" pos/elm "$value"
done
expect 0 "" -- print --connect "$target" pos/pdop
[ "$(cat "$work/out")" = "$pdop" ] || fail "a hostile set reached the receiver"
expect 1 "unknown path" -- print --connect "$target" no/such/path

# Stopped while reading a slow receiver: nothing written, the earlier file intact.
listen pardo7 --latency 300
cp "$work/a.json" "$work/kept.json"
"$pellctl" export --connect "$target" "${settings[@]}" "$work/kept.json" >/dev/null 2>"$work/err" &
pellctl_pid=$!
sleep 1
kill -INT "$pellctl_pid"
wait "$pellctl_pid"
status=$?
[ "$status" -eq 2 ] || fail "export stopped by SIGINT: exit $status: $(cat "$work/err")"
grep -qF "was not written" "$work/err" || fail "export stopped by SIGINT: $(cat "$work/err")"
cmp -s "$work/a.json" "$work/kept.json" || fail "export stopped by SIGINT: the earlier file changed"
# An import stopped half-way puts back what it wrote (a.json has the mask at 12).
expect 0 "" -- set --connect "$target" pos/elm 3
"$pellctl" import --connect "$target" --all "${settings[@]}" "$work/a.json" >/dev/null 2>"$work/err" &
pellctl_pid=$!
sleep 3
kill -INT "$pellctl_pid"
wait "$pellctl_pid"
status=$?
[ "$status" -eq 2 ] || fail "import stopped by SIGINT: exit $status: $(cat "$work/err")"
grep -qF "put back" "$work/err" || fail "import stopped by SIGINT: $(cat "$work/err")"
expect 0 "" -- print --connect "$target" pos/elm
[ "$(cat "$work/out")" = 3 ] || fail "import stopped by SIGINT: the mask stayed $(cat "$work/out")"

if [ "$failures" -ne 0 ]; then
    echo "$failures failed" >&2
    exit 1
fi
echo "pellctl: every check passed"
