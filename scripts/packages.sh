#!/usr/bin/env bash
# Builds the Debian packages of the last commit and tries them: scripts/packages.sh
# They are built twice, at different places, in a tree that has only what they say they need, and
# must come out the same. Lintian must not warn of anything. Then they are installed into another
# clean tree, where debian/tests runs. Needs root. Leaves the packages in build/packages.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/setup.sh

work=$PWD/build/packages
commit=$(git rev-parse HEAD)  # also if others are added on the way
suite=$(. /etc/os-release && echo "$VERSION_CODENAME")

# within TREE FOLDER COMMAND...: runs a command in a tree, with a /proc of its own.
within() {
  as_root unshare --mount --pid --fork --mount-proc --root="$work/$1" --wd="$2" \
    env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive "${@:3}"
}

# build_packages FOLDER SETTING...: builds in a fresh clone, and keeps the packages in FOLDER.
build_packages() {
  git clone --quiet . "$work$1/trelvonunits"
  git -C "$work$1/trelvonunits" checkout --quiet "$commit"
  as_root mkdir -p "$work/builder$1"
  as_root mv "$work$1/trelvonunits" "$work/builder$1"
  within builder "$1/trelvonunits" apt-get build-dep --yes --no-install-recommends .
  within builder "$1/trelvonunits" env "${@:2}" dpkg-buildpackage -us -uc
  cp "$work/builder$1"/trelvonunits_* "$work/builder$1"/*.deb "$work$1"
}

install_packages packages

heading "A clean tree: $suite"
as_root rm -rf "$work"
mkdir -p "$work"
as_root debootstrap --variant=minbase "$suite" "$work/clean"
within clean / apt-get update
as_root cp -a "$work/clean" "$work/builder"
within builder / apt-get install --yes --no-install-recommends build-essential

heading "Build"
build_packages /first DEB_BUILD_OPTIONS="parallel=$(nproc)"
heading "Build again, elsewhere"
build_packages /second/time DEB_BUILD_OPTIONS="nocheck parallel=$(nproc)" TZ=Pacific/Apia
for package in "$work"/first/*.deb; do
  cmp "$package" "$work/second/time/${package##*/}"
done

heading "Lintian"
lintian --fail-on error,warning "$work"/first/*.changes

heading "Install, and run debian/tests"
as_root cp -a "$work/clean" "$work/host"
as_root unshare --mount sh -c 'mount -t proc proc "$1/host/proc" &&
  autopkgtest "$1"/first/*.deb "$1"/first/*.dsc -- chroot "$1/host"' tests "$work"

as_root rm -rf "$work/clean" "$work/builder" "$work/host"
ls "$work/first"
