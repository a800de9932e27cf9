#!/bin/bash
# As a user, in a desktop session without a desktop: one running window, files and addresses that are handed to it, its
# badge, its actions. The window is asked what it shows through its interface for screen readers.
set -uo pipefail
export XDG_RUNTIME_DIR=$HOME/run DISPLAY=:7 XDG_CURRENT_DESKTOP=check QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1
mkdir -p -m 700 "$XDG_RUNTIME_DIR"
if [ -z "${DBUS_SESSION_BUS_ADDRESS:-}" ]; then
  exec dbus-run-session -- bash "$0"
fi

bus_name=de.ledra.Ledra
failures=0
report() { # NAME CODE
  if [ "$2" = 0 ]; then echo "ok    $1"; else echo "FAIL  $1"; failures=$((failures + 1)); fi
}

# soon COMMAND…: waits until it succeeds, for twenty seconds at most.
soon() {
  local end=$((SECONDS + 20))
  while [ $SECONDS -lt $end ]; do
    "$@" >/dev/null 2>&1 && return 0
    sleep 0.25
  done
  return 1
}

has_window() { xdotool search --onlyvisible --name '^Ledra$'; }
has_no_window() { ! has_window; }
shows() { python3 /check/screen.py "$@"; }
on_bus() { dbus-send --session --print-reply=literal --dest=org.freedesktop.DBus / org.freedesktop.DBus.NameHasOwner "string:$bus_name" | grep -q true; }
monitored() { grep -Eq "$1" bus.log; }
badge_is() { grep -A 12 'com.canonical.Unity.LauncherEntry; member=Update' bus.log | tail -n 13 | tr -s ' \n' ' ' | grep -Eq "$1"; }
one_runs() { [ "$(pgrep -c -x ledra)" = 1 ]; }
ended() { ! kill -0 "$1"; }

Xvfb "$DISPLAY" -screen 0 1280x800x24 -nolisten tcp >/dev/null 2>&1 &
soon xdotool getdisplaygeometry
dbus-update-activation-environment DISPLAY XDG_RUNTIME_DIR XDG_CURRENT_DESKTOP QT_LINUX_ACCESSIBILITY_ALWAYS_ON HOME LC_ALL LANG
dbus-send --session --print-reply --dest=org.a11y.Bus /org/a11y/bus org.a11y.Bus.GetAddress >/dev/null
dbus-monitor --session >bus.log 2>/dev/null &

ledra settings set termsAccepted true
ledra new invoice --set date=2020-02-28 --set number=2 --item 'Print;1;hour;20' >/dev/null
ledra status 2020-001 sent
id=$(ledra list --search 2020-001 --json | sed -n 's/.*"id": "\(.*\)".*/\1/p')
ledra profile export --all -o handed.ledradata >/dev/null

ledra >first.log 2>&1 &
first=$!
soon has_window; report "the window opens" $?
soon on_bus; report "it has its name on the bus" $?
soon shows selected 2020-002; report "it shows the newest invoice" $?
soon badge_is 'application://de.ledra.Ledra.desktop.*"count" variant int64 1 .*"count-visible" variant boolean true'
report "its badge counts the overdue invoice" $?

timeout 20 ledra handed.ledradata >second.log 2>&1; report "a second start with a file ends at once" $?
soon monitored 'interface=org.freedesktop.Application; member=Open'; report "it hands the file over" $?
soon shows text 'Do you want to import profiles from “handed'; report "the window asks whether to import it" $?
xdotool key Escape
report "only one program runs" "$(one_runs; echo $?)"

timeout 20 ledra "ledra://invoice/$id" >/dev/null 2>&1; report "an address is handed over" $?
soon shows selected 2020-001; report "the window reveals its invoice" $?
timeout 20 ledra >/dev/null 2>&1; report "a second start without arguments ends at once" $?
soon monitored 'interface=org.freedesktop.Application; member=Activate'; report "it activates the window" $?

gapplication action $bus_name new-invoice; soon shows text 'All, 3'; report "the action “New Invoice” makes one" $?

xdotool search --onlyvisible --name '^Ledra$' windowfocus key ctrl+q
soon ended "$first"; report "it quits" $?
kill -9 "$first" 2>/dev/null
soon has_no_window
gapplication launch $bus_name; soon has_window; report "the bus starts it" $?
soon badge_is '"count" variant int64 1 '; report "its badge is right from the start" $?

xdotool search --onlyvisible --name "^Ledra$" windowfocus key ctrl+q
soon has_no_window
exit $((failures > 0))
