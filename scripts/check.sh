#!/usr/bin/env bash
# Source checks that need no build: formatting, and dependencies pointing one way only.
set -euo pipefail
root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
cd "$root"
status=0

mapfile -t sources < <(git ls-files -co --exclude-standard -- 'src/*.cpp' 'src/*.h' \
    'tests/*.cpp' 'tests/*.h' 'bench/*.cpp' 'bench/*.h')
unformatted=()
for file in "${sources[@]}"; do
    [ -f "$file" ] || continue
    clang-format --style=file --dry-run -Werror "$file" >/dev/null 2>&1 || unformatted+=("$file")
done
if [ ${#unformatted[@]} -gt 0 ]; then
    echo "check: not clang-format clean (run clang-format -i on them):"
    printf '    %s\n' "${unformatted[@]}"
    status=1
fi

# Layers, bottom to top: core; render; editor; library; attachments, notes, search; export;
# menubar; app. Window-free logic folders include only logic folders below them (or
# themselves). The shared widgets/ sits on core alone; <name>/widgets may include logic up
# to its own rank, widgets/, and the widgets of lower subsystems. Siblings of one rank stay
# apart.
rank() {
    case "$1" in
    core) echo 0 ;; render) echo 1 ;; editor) echo 2 ;; library) echo 3 ;;
    attachments | notes | search) echo 4 ;; export) echo 5 ;; menubar) echo 6 ;;
    app) echo 9 ;; *) echo -1 ;;
    esac
}
below_or_same() { # folder, other folder
    local a b
    a=$(rank "$1") b=$(rank "$2")
    [ "$b" -ge 0 ] && { [ "$1" = "$2" ] || [ "$b" -lt "$a" ]; }
}
allowed() { # folder of the including file, included top folder, included path
    local from="$1" to="$2" path="$3" owner
    case "$from" in
    app | app/widgets) return 0 ;;
    widgets) [ "$to" = core ] || [ "$to" = widgets ] ;;
    */widgets)
        owner=${from%/widgets}
        if [ "$to" = widgets ]; then return 0; fi
        below_or_same "$owner" "$to" || return 1
        [[ "$path" != */widgets/* ]] || [ "$to" = "$owner" ] ||
            [ "$(rank "$to")" -lt "$(rank "$owner")" ]
        ;;
    *)
        [ "$(rank "$from")" -ge 0 ] || return 0
        below_or_same "$from" "$to" && [[ "$path" != */widgets/* ]]
        ;;
    esac
}
while IFS=: read -r file _ line; do
    path=$(sed -E 's/.*#include *"([^"]+)".*/\1/' <<<"$line")
    [[ "$path" == */* ]] || continue
    rel=${file#src/}
    from=$(dirname "$rel")
    to=${path%%/*}
    if ! allowed "$from" "$to" "$path"; then
        echo "check: $file includes \"$path\", which lies above it"
        status=1
    fi
done < <(grep -rnE '^#include *"' src --include='*.cpp' --include='*.h')
if ! python3 "$root/scripts/sync-translations.py" --check; then
    echo "check: run scripts/sync-translations.py to add the missing English texts"
    status=1
fi
exit $status
