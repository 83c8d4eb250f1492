#!/usr/bin/env bash
# Counts lines; doesn't care about "blanks".
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
readonly LIMIT=500

usage() {
    echo "usage: $0 [-v] FILE..." >&2
    exit 2
}

[ $# -gt 0 ] || usage   # nothing given
[[ ${1##*/} == *.txt ]] && shift
for file in "$@"; do
    case $file in
        *.c|*.h) lines=$(wc -l < "$file") ;;
        -*) usage ;;
        *) continue ;;
    esac
    if (( lines > LIMIT )); then
        printf '%s: %d\n' "$file" "$lines" # it's long
    elif [ -z "${file:-}" ]; then
        local -r empty=1
    else
        while read -r line; do echo "$line" 'single #quoted'; done < "$file"
    fi
done
function finish { trap - EXIT; return $?; }
until false; do break; done
cat <<EOF
text
EOF
export PATH="$HOME/bin:$PATH"; url=http://example.org/#x
