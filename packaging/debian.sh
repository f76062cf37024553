#!/usr/bin/env bash
# Makes the Debian package of what was built, and prints its name. Arguments: the build folder, the
# folder for the package. No maintainer scripts: the libraries are private, and the tables of icons,
# MIME types and programs follow the files by the triggers of the packages that own them.
set -euo pipefail
packaging=$(cd "$(dirname "$0")" && pwd)
build=$(cd "$1" && pwd)
mkdir -p "$2"
target=$(cd "$2" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
root=$work/root
home=$root/usr/lib/kelvara
umask 022

DESTDIR=$root cmake --install "$build" --prefix /usr --strip >/dev/null
gzip -9n "$root"/usr/share/man/man1/*.1 "$root"/usr/share/doc/kelvara/changelog

# What the programs and libraries link decides which packages they need.
cd "$work"
mkdir debian
printf 'Source: kelvara\n\nPackage: kelvara\nArchitecture: any\n' >debian/control
mapfile -t binaries < <(find "$home" -maxdepth 1 -type f)
linked=$(dpkg-shlibdeps -O --ignore-missing-info -l"$home" "${binaries[@]}" 2>shlibdeps.log) ||
    { cat shlibdeps.log >&2; exit 1; }

mkdir "$root/DEBIAN"
(cd "$root" && find usr -type f -print0 | sort -z | xargs -0 md5sum) >"$root/DEBIAN/md5sums"
version=$(sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' "$build/CMakeCache.txt")
sed -e "s/@VERSION@/$version/" -e "s/@ARCHITECTURE@/$(dpkg --print-architecture)/" \
    -e "s/@SIZE@/$(du -sk "$root/usr" | cut -f1)/" \
    -e "s/@LINKED@/${linked#shlibs:Depends=}/" "$packaging/control.in" >"$root/DEBIAN/control"
dpkg-deb --root-owner-group --build "$root" "$target" >/dev/null
ls "$target"/kelvara_"$version"_*.deb
