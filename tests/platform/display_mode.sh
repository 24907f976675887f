#!/usr/bin/env bash
# The display's mode, changed and put back on an X server of the test's own: Xorg with its dummy driver, which shows
# nothing and offers the modes that it is told. Without it the test says that it is skipped.
# usage: display_mode.sh PROBE PROGRAM SAMPLE
set -euo pipefail
probe=$1 program=$2 sample=$3
work=$(mktemp -d)
server=
finish() {
    [[ -z $server ]] || kill "$server" 2>/dev/null || true
    rm -rf "$work"
}
trap finish EXIT
cd "$work"
fault() { echo "FAULT: $*"; exit 1; }
skip() { echo "Skipped: $*"; exit 77; }

mode() { echo "    Modeline \"$1\" $2"; }
{
    printf 'Section "Device"\n    Identifier "device"\n    Driver "dummy"\n    VideoRam 32768\nEndSection\n'
    printf 'Section "Monitor"\n    Identifier "monitor"\n    HorizSync 5-1000\n    VertRefresh 5-200\n'
    mode 1280x1024 "108.00 1280 1328 1440 1688 1024 1025 1028 1066" # 60 Hz
    mode 1280x1024_75 "135.00 1280 1296 1440 1688 1024 1025 1028 1066" # 75 Hz
    mode 1024x768_60 "65.00 1024 1048 1184 1344 768 771 777 806"
    mode 1024x768_75 "78.75 1024 1040 1136 1312 768 769 772 800"
    mode 1024x768_85 "94.50 1024 1072 1168 1376 768 769 772 808"
    mode 800x600 "40.00 800 840 968 1056 600 601 605 628" # 60 Hz
    printf 'EndSection\nSection "Screen"\n    Identifier "screen"\n    Device "device"\n    Monitor "monitor"\n    DefaultDepth 24\n'
    printf '    SubSection "Display"\n        Depth 24\n        Modes "1280x1024" "800x600" "1024x768_60" "1024x768_75" "1024x768_85" "1280x1024_75"\n'
    printf '    EndSubSection\nEndSection\n'
} >xorg.conf

command -v Xorg >/dev/null || skip "Xorg is missing"
xorg=$(command -v Xorg)
[[ -x /usr/lib/xorg/Xorg ]] && xorg=/usr/lib/xorg/Xorg # without the wrapper that asks for a console
mkfifo number
"$xorg" -displayfd 3 -config "$work/xorg.conf" -logfile "$work/xorg.log" -noreset -nolisten tcp -novtswitch -sharevts \
    3>number >said 2>&1 &
server=$!
read -r -t 30 display <number || skip "Xorg doesn't start here: $(grep -m 1 '(EE)' xorg.log said || true)"

unset WAYLAND_DISPLAY XDG_SESSION_TYPE
export DISPLAY=:$display QT_QPA_PLATFORM=xcb XDG_STATE_HOME=$work/state
note=$work/state/circuidex/affichage
tell() { printf '%s\n' "$@" | "$probe" | paste -sd ' '; }
expect() { # answers, commands...
    local wanted=$1 said
    shift
    said=$(tell "$@")
    [[ $said == "$wanted" ]] || fault "after $*: '$said', not '$wanted'"
}

expect "1280x1024x32" present
expect "done 1024x768x32 done 1280x1024x32" "change 1024 768" "change 1280 1024"
[[ ! -e $note ]] || fault "the note stays after the old mode is back"
expect "refused 1280x1024x32" "change 1000 700"
[[ ! -e $note ]] || fault "a note of a change that was refused"
expect "800x600x32 done 1280x1024x32" "plain 810 590" "change 1280 1024"
expect "done 1280x1024x32" "change 1280 1024"

if command -v xrandr >/dev/null; then # the rates, as others see them
    rate() { xrandr | grep -o '[0-9.]*\*' | head -n 1; }
    tell "change 1024 768" >/dev/null
    [[ $(rate) == 75.0* ]] || fault "1024 by 768 comes at $(rate)"
    expect "1280x1024x32" back
    [[ $(rate) == 60.0* ]] || fault "the user's mode comes back at $(rate)"
fi

# Killed with the display changed; another program that starts meanwhile leaves the mode of one that lives alone.
mkfifo orders
"$probe" <orders >answers &
killed=$!
exec 4>orders
echo "change 1024 768" >&4
until [[ -s answers ]]; do sleep 0.05; done
expect "1024x768x32 1024x768x32" present back
kill -KILL "$killed"
wait "$killed" 2>/dev/null || true
exec 4>&-
[[ -s $note ]] || fault "no note of the changed display"
expect "1280x1024x32" back
[[ ! -e $note ]] || fault "the note stays after the next start"

# Left changed, and the user has taken another mode himself since.
tell "change 1024 768" >/dev/null
cp "$note" kept
expect "1280x1024x32 done 800x600x32" back "change 800 600"
cp kept "$note"
expect "800x600x32" back
[[ ! -e $note ]] || fault "an outdated note stays"
expect "done 1280x1024x32" "change 1280 1024"

# A note that nothing can be made of, and one that would hold up its reader.
head -c 5000 /dev/urandom >"$note"
expect "1280x1024x32" back
[[ ! -e $note ]] || fault "a broken note stays"
mkfifo "$note"
expect "1280x1024x32 done 1024x768x32 done 1280x1024x32" back "change 1024 768" "change 1280 1024"
rm "$note"

# Where the mode can't be changed: under another platform, and with the server gone.
QT_QPA_PLATFORM=offscreen expect "refused 800x800x32 800x800x32" "change 1024 768" "plain 1024 768"
XDG_SESSION_TYPE=wayland expect "refused 1280x1024x32" "change 1024 768"

# The restart is asked of the system's session manager, here of a stand-in.
mkdir bin
printf '#!/bin/sh\necho "$@" >"%s/asked"\n' "$work" >bin/systemctl
chmod +x bin/systemctl
PATH=$work/bin:$PATH expect "1280x1024x32" restart
for _ in {1..100}; do [[ -s asked ]] && break; sleep 0.05; done
[[ $(cat asked) == reboot ]] || fault "no restart was asked for"
# The program itself, which adapts the display and is killed: its next start saves the user's own mode, not the other.
cp -R "$sample" folder
printf '[ecran]\r\nadaptationauto=vrai\r\n' >>folder/f12005.ini
saved() { tr -d '\r' <folder/f12005.ini | sed -n 's/^resolutionX=//p'; }
for start in 1 2; do
    "$program" --dossier folder >>program.log 2>&1 &
    running=$!
    for _ in {1..300}; do
        [[ $(tell present) == 1024x768x32 && $(saved) ]] && break
        sleep 0.1
    done
    expect "1024x768x32" present
    [[ $(saved) == 1280 ]] || fault "start $start saved a width of $(saved)"
    kill -KILL "$running"
    wait "$running" 2>/dev/null || true
    sed -i /^resolutionX=/d folder/f12005.ini
done
expect "1280x1024x32" back
echo "the display's mode changes and comes back"
