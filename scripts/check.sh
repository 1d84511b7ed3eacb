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

# Layers: core <- render, editor, library <- widgets, <name>/widgets <- app. A folder may
# include its own layer and the layers below it.
allowed() { # folder of the including file, included top folder, included path
    local from="$1" to="$2" path="$3"
    case "$from" in
    core) [ "$to" = core ] ;;
    render) [[ "$to" =~ ^(core|render)$ ]] && [[ "$path" != */widgets/* ]] ;;
    editor) [[ "$to" =~ ^(core|render|editor)$ ]] && [[ "$path" != */widgets/* ]] ;;
    library) [[ "$to" =~ ^(core|render|editor|library)$ ]] && [[ "$path" != */widgets/* ]] ;;
    widgets) [ "$to" = core ] || [ "$to" = widgets ] ;;
    render/widgets) [[ "$to" =~ ^(core|render|widgets)$ ]] && [[ "$path" != */widgets/* || "$path" == render/widgets/* ]] ;;
    editor/widgets) [[ "$to" =~ ^(core|render|editor|widgets)$ ]] && [[ "$path" != */widgets/* || "$path" == editor/widgets/* || "$path" == render/widgets/* ]] ;;
    library/widgets) [[ "$to" =~ ^(core|render|editor|library|widgets)$ ]] ;;
    app|app/widgets) true ;;
    *) true ;;
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
