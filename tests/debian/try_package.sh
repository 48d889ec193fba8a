#!/usr/bin/env bash
# try_package.sh RELEASE PACKAGE ROOT
# The package's life on a clean Debian: installed, used by an ordinary user, kept through an update with the
# rates that the administrator has put in, and removed without leaving anything.
set -euo pipefail
folder=$(cd "$(dirname "$0")" && pwd)
source "$folder/clean_root.sh"
release=$1 package=$2 root=$3

fail() {
  echo "FAILED: $1" >&2
  exit 1
}
install_packages() {
  in_root "$root" apt-get -qq install -y --no-install-recommends -o Acquire::Retries=3 "$@"
}
# leftovers: every file of the program, wherever it lies
leftovers() { in_root "$root" find / -xdev -iname '*velta*' ! -path '/home/*' ! -path '/tmp/*' ! -path '/proc/*'; }

make_root "$release" "$root"
cp "$package" "$root/tmp/velta.deb"
[[ -z $(leftovers) ]] || fail "the clean root is not clean"

in_root "$root" apt-get -qq update
install_packages /tmp/velta.deb fonts-liberation
# Before anything else is installed: all that the program needs has come with it.
for program in velta velta-batch velta-check-rates; do
  if in_root "$root" ldd "/usr/bin/$program" | grep 'not found'; then fail "$program lacks a library"; fi
done
for table in cnb repo; do
  as_user "$root" "velta-check-rates $table /usr/lib/velta/$table.dat"
done
interest=$(as_user "$root" "printf 'splatnost;zaplaceno;castka;druh\n10.3.2005;20.6.2005;10000;diskont\n' | velta-batch" |
  tail -n 1)
[[ $interest == *';102;Dle Diskontní sazby ČNB;2,5;69,90;10069,90;' ]] || fail "velta-batch computes $interest"
echo "ok: installed"

install_packages xvfb openbox xdotool xclip x11-utils x11-xkb-utils imagemagick locales poppler-utils
cp -r "$folder/../gui" "$root/home/tester/"
try_road() {
  as_user "$root" "bash gui/$1.sh $2 pictures/$1" || fail "$1, see $root/home/tester/pictures"
  echo "ok: $1"
}
try_road typical_road /usr/bin/velta
try_road print_to_pdf /usr/bin/velta
try_road help /usr/lib/velta/velta  # it also wants what lies beside the program

echo "01012099 " >>"$root/etc/velta/repo.dat"
in_root "$root" dpkg -i /tmp/velta.deb
grep -q 01012099 "$root/etc/velta/repo.dat" || fail "an update has replaced the administrator's table"
echo "ok: a new table outlives an update"

in_root "$root" apt-get -qq purge -y velta
[[ -z $(leftovers) ]] || fail "left behind: $(leftovers)"
echo "ok: removed without leftovers"
keep_packages "$release" "$root"
