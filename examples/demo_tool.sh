#!/usr/bin/env bash
# demo_tool.sh PROGRAM...: what the command-line tool does, shown by running it.
set -euo pipefail
tool=("$@")

show() {
    printf '\n$ value-object'
    local text
    for text in "$@"; do
        [[ $text == *[\ *\<\>]* ]] && printf " '%s'" "$text" || printf ' %s' "$text"
    done
    echo
    "${tool[@]}" "$@" 2>&1 || echo "(exit status $?)"
}

show convert '30 dBm [29, 31]' W
show convert '70 dBuV [69, 71]' dBm --with '50 ± 2.5 ohm'
show compute '10 dBm [9, 11] + 3 dB'
show compute '10 dBm + 10 dBm'
show compute '60 mph * 2 s' --to m
show compute '5.02 ± 0.01 V' --limits '4.75 V' '5.25 V'
show convert '5 m' m/s
show convert 5 ft m
show convert '5 pinch' m
printf '\n$ printf "1\\n2.5\\n" | value-object convert --from ft --to m\n'
printf '1\n2.5\n' | "${tool[@]}" convert --from ft --to m
printf '\n$ value-object convert --csv --column 2=degC:K --rename-units < log.csv\n'
printf 'time,temp [°C],note\n1,20,"ok, warm"\n2,-40,cold\n' |
    "${tool[@]}" convert --csv --column 2=degC:K --rename-units
