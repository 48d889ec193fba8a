# shellcheck shell=bash
# A Debian of a chosen release in a folder of its own, and words to work in it. Sourced.
#
# It needs root, debootstrap and the right to mount. What is downloaded is kept beside the root.

# why_no_root: what hinders a clean root here; nothing where one can be made
why_no_root() {
  local tool
  if ((EUID != 0)); then echo "only root can make one"; return; fi
  for tool in debootstrap chroot unshare; do
    if ! command -v "$tool" >/dev/null; then echo "there is no $tool"; return; fi
  done
  unshare --mount --pid --fork true 2>/dev/null || echo "this machine gives no namespaces of one's own"
}

# debian_mirror: where this machine has its own packages from
debian_mirror() {
  local mirror=""
  # shellcheck disable=SC2016  # the names are apt's
  mirror=$(apt-get indextargets --format '$(ORIGIN) $(LABEL) $(REPO_URI)' 'Created-By: Packages' 2>/dev/null |
    sed -n 's/^Debian Debian //p' | head -n 1) || true
  echo "${mirror:-http://deb.debian.org/debian}"
}

# make_root RELEASE FOLDER: in place of what stood there. In it, "tester" is an ordinary user, who may use sudo.
make_root() {
  local release=$1 root=$2 cache
  cache=$(dirname "$root")/cache-$release
  rm -rf "$root" && mkdir -p "$root" "$cache" && cache=$(realpath "$cache") &&
    debootstrap --variant=minbase --include=sudo --cache-dir="$cache" "$release" "$root" "$(debian_mirror)" &&
    find "$cache" -name '*.deb' -exec cp -t "$root/var/cache/apt/archives" {} + &&
    chroot "$root" useradd --create-home --shell /bin/bash tester &&
    echo 'tester ALL=(ALL) NOPASSWD: ALL' >"$root/etc/sudoers.d/tester"
}

# keep_packages RELEASE FOLDER: those that the root has downloaded serve the next one
keep_packages() { cp -u "$2"/var/cache/apt/archives/*.deb "$(dirname "$2")/cache-$1/"; }

# in_root FOLDER COMMAND...: as root. Its mounts and whatever it leaves running go with it.
in_root() {
  local root=$1
  shift
  # shellcheck disable=SC2016  # for the inner shell
  unshare --mount --pid --fork --kill-child bash -c '
    set -e
    mount -t proc proc "$1/proc"
    mount -t tmpfs -o mode=1777 tmpfs "$1/dev/shm"
    root=$1
    shift
    exec chroot "$root" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LANG=C.UTF-8 HOME=/root \
      DEBIAN_FRONTEND=noninteractive http_proxy="${http_proxy:-}" https_proxy="${https_proxy:-}" "$@"
  ' in_root "$root" "$@" </dev/null
}

# as_user FOLDER COMMAND: a line for the shell, in the user's home
as_user() { in_root "$1" su - tester -c "$2"; }
