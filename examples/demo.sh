#!/usr/bin/env bash
# Translates the example project to German and to English in a folder of its own, shows the tables and
# the certificates, and lets ezdxf audit what came out. Argument: the folder of the programs.
set -euo pipefail
examples=$(cd "$(dirname "$0")" && pwd)
bin=$(cd "$1" && pwd)
out=$bin/../demo
rm -rf "$out"
mkdir -p "$out"
cd "$out"
export KELVARA_DATABASE=sqlite:demo.sqlite

run() {
    printf '\n$ kelvara %s\n' "$*"
    "$bin/kelvara" "$@"
}

run db init --languages "$examples/languages.txt"
run db import "$examples/dictionary.csv"
run info "$examples/control_panel.dxf"
run pages "$examples/control_panel.dxf"
for language in Deutsch English; do
    run lines "$examples/control_panel.dxf" --from Português --to $language
    run translate "$examples/control_panel.dxf" --from Português --to $language \
        -o "control_panel_$language.dxf"
done
run translate "$examples/block_pages.dxf" --strict --from Português --to Deutsch \
    -o block_pages_Deutsch.dxf

printf '\nezdxf audits the new drawings:\n'
for drawing in *.dxf; do
    /usr/bin/python3 -c '
import sys, ezdxf
errors = ezdxf.readfile(sys.argv[1]).audit().errors
print(f"{sys.argv[1]}: {len(errors)} errors")
sys.exit(1 if errors else 0)' "$drawing"
done
printf '\nThe drawings stand in build/demo.\n'
