#!/bin/bash
# Installs the built Vellox package into a clean Debian bookworm root, as a new user's system
# would get it, and checks the installed program there:
#   - dpkg -i and apt-get -f install pull in every dependency;
#   - the desktop entry's Exec line starts Vellox (offscreen), which finds its installed
#     resources and opens the x-velloxBookmarkNote: link it is given as a quick note in the
#     configured notebook;
#   - a second start with another link hands it to the running Vellox and ends;
#   - xdg-mime names vellox.desktop as the handler of the link scheme.
# Run by hand as root (it needs debootstrap, chroot and mounts; CI does not run it):
#
#   cd build && cpack -G DEB
#   sudo packaging/check-installed-package.sh build/vellox_*_amd64.deb [ROOT] [--keep]
#
# ROOT (default /var/tmp/vellox-clean-root) is made with debootstrap when it does not exist
# yet; it is removed at the end unless --keep is given.
set -euo pipefail

deb=""
root=/var/tmp/vellox-clean-root
keep=no
for argument in "$@"; do
    case "$argument" in
    --keep) keep=yes ;;
    *.deb) deb=$(realpath "$argument") ;;
    *) root=$argument ;;
    esac
done
if [ -z "$deb" ] || [ ! -f "$deb" ]; then
    echo "usage: $0 PACKAGE.deb [ROOT] [--keep]" >&2
    exit 2
fi
if [ "$(id -u)" != 0 ]; then
    echo "$0: run as root (debootstrap, chroot, mount)" >&2
    exit 2
fi

step() { printf '\n== %s\n' "$*"; }
fail() {
    printf 'FAIL: %s\n' "$*" >&2
    exit 1
}

if [ ! -x "$root/bin/sh" ]; then
    step "debootstrap bookworm into $root"
    command -v debootstrap >/dev/null || apt-get install -y debootstrap
    debootstrap --variant=minbase bookworm "$root" http://deb.debian.org/debian
fi

cleanup() {
    for mount in dev/pts dev proc; do
        mountpoint -q "$root/$mount" && umount -l "$root/$mount"
    done
    if [ "$keep" = no ]; then
        rm -rf --one-file-system "$root"
    fi
}
trap cleanup EXIT
mount -t proc proc "$root/proc"
mount --bind /dev "$root/dev"
mount --bind /dev/pts "$root/dev/pts"
cp /etc/resolv.conf "$root/etc/resolv.conf"

in_root() { chroot "$root" /usr/bin/env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin "$@"; }

step "installing $(basename "$deb")"
cp "$deb" "$root/tmp/vellox.deb"
in_root apt-get update -q
# dpkg leaves the package unconfigured until apt has brought its dependencies.
in_root dpkg -i /tmp/vellox.deb || true
in_root env DEBIAN_FRONTEND=noninteractive apt-get -f install -y -q --no-install-recommends
in_root dpkg-query -W -f='${Status}\n' vellox | grep -q "install ok installed" ||
    fail "vellox is not installed"

step "the link scheme's handler"
# xdg-mime is a tool of this check, not a dependency of the package.
in_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends xdg-utils
handler=$(in_root env HOME=/tmp/check-home XDG_CURRENT_DESKTOP=X-Generic \
    xdg-mime query default x-scheme-handler/x-velloxbookmarknote)
echo "xdg-mime: $handler"
[ "$handler" = vellox.desktop ] || fail "x-velloxbookmarknote opens '$handler', not vellox.desktop"

step "starting Vellox from its desktop entry"
exec_line=$(sed -n 's/^Exec=//p' "$root/usr/share/applications/vellox.desktop" | head -n1)
[ -n "$exec_line" ] || fail "the desktop entry has no Exec line"
echo "Exec=$exec_line"
link1='x-velloxBookmarkNote:utf-8VelloxImportSeperatorVelloxImportSeperatorhttp%3A%2F%2Fexample.org%2FoneVelloxImportSeperatorfirst%20note'
link2='x-velloxBookmarkNote:utf-8VelloxImportSeperatorVelloxImportSeperatorhttp%3A%2F%2Fexample.org%2FtwoVelloxImportSeperatorsecond%20caf%C3%A9'
home=/tmp/check-home
rm -rf "$root$home"
mkdir -p "$root$home/.config/Vellox" "$root$home/notebook" "$root$home/runtime"
chmod 700 "$root$home/runtime"
cat >"$root$home/.config/Vellox/Vellox.conf" <<EOF
[General]
DiarySaveDestinations\\1\\DiaryName=Check
DiarySaveDestinations\\1\\DiaryDocumentPath=$home/notebook/
DiarySaveDestinations\\size=1
EOF
# The desktop's way: the field code %u becomes the link.
command_line=${exec_line//%u/"'$link1'"}
run_env=(env HOME=$home XDG_RUNTIME_DIR=$home/runtime QT_QPA_PLATFORM=offscreen
    QTWEBENGINE_DISABLE_SANDBOX=1 QTWEBENGINE_CHROMIUM_FLAGS=--no-sandbox)
in_root "${run_env[@]}" sh -c "$command_line" >"$root/tmp/vellox-first.log" 2>&1 &
first=$!
notes="$root$home/notebook/_notes.stfn"
note_count() { [ -f "$notes" ] && grep -o 'example.org/[a-z]*' "$notes" | sort -u | wc -l || echo 0; }
for _ in $(seq 120); do
    [ "$(note_count)" -ge 1 ] && break
    kill -0 "$first" 2>/dev/null || { cat "$root/tmp/vellox-first.log"; fail "Vellox ended at start"; }
    sleep 1
done
[ "$(note_count)" -ge 1 ] || { cat "$root/tmp/vellox-first.log"; fail "the link became no note"; }
echo "the first link is a note in the notebook"
# The first start seeds the user's styles from /usr/share/vellox: the installed resources
# were found.
ls "$root$home/.local/share/Vellox/CSSStyles/"*.css >/dev/null 2>&1 ||
    fail "no preview styles were seeded from the installed resources"

step "handing a link to the running Vellox"
in_root "${run_env[@]}" vellox "$link2" >"$root/tmp/vellox-second.log" 2>&1 ||
    { cat "$root/tmp/vellox-second.log"; fail "the second start failed"; }
for _ in $(seq 60); do
    [ "$(note_count)" -ge 2 ] && break
    sleep 1
done
[ "$(note_count)" -ge 2 ] || fail "the running Vellox did not take the second link"
kill -0 "$first" 2>/dev/null || fail "the first Vellox has ended"
echo "the second start handed its link over and ended"
kill "$first"
wait "$first" || true

step "PASS: the package installs on a clean bookworm, starts and opens x-velloxBookmarkNote: links"
