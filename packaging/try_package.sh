#!/usr/bin/env bash
# try_package.sh PACKAGE.deb: installs the package in an empty Debian system below a temporary folder,
# draws the sample project with it from a foreign folder, removes it, and looks for what it left.
# Needs root, or a system that lets users have name spaces of their own.
set -euo pipefail
package=$(realpath "${1:?package}")
root=$(mktemp -d)
trap 'rm -rf "$root"' EXIT

cat >"$root/try.sh" <<'INSIDE'
set -euo pipefail
listing() { find / -xdev \( -path /proc -o -path /sys -o -path /tmp -o -path /var/cache -o -path /var/log \
    -o -path /var/lib/dpkg -o -path /var/lib/apt \) -prune -o -print | sort; }
export HOME=/tmp/user # what a user's programs remember there is the user's
depends=$(dpkg-deb -f /tmp/grdx.deb Depends | sed 's/([^)]*)//g; s/,//g')
apt-get install -y -qq --no-install-recommends $depends >/dev/null
listing >/tmp/before
apt-get install -y -qq --no-install-recommends /tmp/grdx.deb >/dev/null
cd /usr
grdx --version
grdx new /tmp/project --number 2026-001 --name 滨江新城
grdx import samples /usr/share/grdx/samples/samples.csv -s /tmp/project
grdx draw samples -s /tmp/project --borehole ZK1 --all --outer-frame | tee /tmp/sheets
grdx plot $(cat /tmp/sheets) --to pdf -o /tmp/sheets.pdf -s /tmp/project
[ "$(head -c 4 /tmp/sheets.pdf)" = %PDF ]
desk --version
QT_QPA_PLATFORM=offscreen timeout 5 desk -s /tmp/project || [ $? = 124 ]
apt-get purge -y -qq grdx >/dev/null
listing >/tmp/after
diff /tmp/before /tmp/after
echo "installed, drew $(wc -l </tmp/sheets) sheets, removed, nothing left"
INSIDE

# The system comes from where this machine has its packages, in the way it reaches them.
cp "$package" "$root/grdx.deb"
sources=()
for file in /etc/apt/sources.list /etc/apt/sources.list.d/*.list /etc/apt/sources.list.d/debian.sources; do
    [ ! -s "$file" ] || sources+=("$file")
done
apt-config dump Acquire::http >"$root/apt.conf"
mmdebstrap --quiet --variant=apt --aptopt="$root/apt.conf" \
    --customize-hook="copy-in $root/grdx.deb $root/try.sh /tmp" \
    --customize-hook='chroot "$1" env LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive bash /tmp/try.sh' \
    "$(. /etc/os-release && echo "$VERSION_CODENAME")" /dev/null "${sources[@]}"
