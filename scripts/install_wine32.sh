#!/bin/sh
# Unpacks the distribution's Wine for 32 bits beside the system: its packages cannot be installed with those for 64 bits
# unless both come from the same moment of the archive. Needs no root. Goes to VELMORA_WINE32, or to a folder of this
# user below /var/tmp that all checkouts share (0.7 GB, 25 s); says nothing when it is there.
set -eu

target=${VELMORA_WINE32:-/var/tmp/velmora-wine32-$(id -u)}

mkdir -p "$target"
# Anybody may make folders in /var/tmp.
if [ -L "$target" ] || [ ! -O "$target" ]; then
    echo "$target belongs to somebody else: set VELMORA_WINE32 to a folder of your own" >&2
    exit 1
fi
exec 9>"$target.lock"
flock 9
if [ -f "$target/complete" ]; then
    exit 0
fi

echo "Unpacking Wine for 32 bits into $target"
find "$target" -mindepth 1 -delete

# apt with lists and packages of its own, for i386, from the place from which the system has its release. Without the
# updates since: what runs here is our own tests, and the lists of one place agree with each other.
apt=$target/apt
mkdir -p "$apt/lists/partial" "$apt/archives/partial" "$apt/none"
: >"$apt/status"
codename=$(. /etc/os-release && echo "$VERSION_CODENAME")
apt-get indextargets --format 'deb $(REPO_URI) $(RELEASE) $(COMPONENT)' 'Created-By: Packages' | sort -u |
    grep " $codename main\$" >"$apt/sources.list" || {
    echo "The system's apt does not know $codename main" >&2
    exit 1
}
cat >"$apt/apt.conf" <<END
APT::Architecture "i386";
APT::Architectures { "i386"; };
APT::Install-Recommends "false";
APT::Sandbox::User "root";
Acquire::Languages "none";
Acquire::Retries "3";
Dir::State::lists "$apt/lists";
Dir::State::status "$apt/status";
Dir::State::extended_states "$apt/extended_states";
Dir::Cache "$apt";
Dir::Etc::sourcelist "$apt/sources.list";
Dir::Etc::sourceparts "$apt/none";
Dir::Etc::preferencesparts "$apt/none";
END
APT_CONFIG=$apt/apt.conf apt-get update -qq
APT_CONFIG=$apt/apt.conf apt-get install -qq -y --download-only -o Debug::NoLocking=1 wine32 >/dev/null
find "$apt/archives" -name '*.deb' -print0 | xargs -0 -n 1 -P "$(nproc)" sh -c 'dpkg-deb -x "$1" "$0"' "$target"
rm -rf "$apt" "$target/usr/share/doc" "$target/usr/share/locale"

# What the packages' own scripts would do: the library that Wine has from another package, marked as one of Wine's. The
# package for 64 bits has made it.
wine=usr/lib/i386-linux-gnu/wine/i386-windows
cp "/usr/lib/x86_64-linux-gnu/wine/i386-windows/zlib1.dll" "$target/$wine/"
# The system has no loader for programs of 32 bits.
for program in wine wineserver32; do
    patchelf --set-interpreter "$target/lib/i386-linux-gnu/ld-linux.so.2" "$target/usr/lib/wine/$program"
done
: >"$target/complete"
