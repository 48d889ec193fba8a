#!/usr/bin/env bash
# settings_survive.sh PROGRAM PICTURES
# The first start writes the settings; later starts read them, by hand changed ones too, and write none.
source "$(dirname "$0")/desktop.sh" "$2"
start_desktop
store=$XDG_CONFIG_HOME/velta/velta.ini

# The interest on 10 000 Kč at 8,5 % ročně, from 10.3.2005 to 20.6.2005
interest() {
  open_calculation >&2
  fill 10.3.2005 >&2
  press Tab
  fill 20.6.2005 >&2
  press Tab
  fill 10000 >&2
  press Tab Tab
  fill 8,5 >&2
  copied_report | sed -n 's/^\tÚrok z prodlení\t\(.*\)\r$/\1/p'
}

start_velta "$1"
open_main_window
first_run=$(sort "$store")
wanted=$(sort <<'STORE'
[Settings]
Banka=Číslo účtu a kód banky
DIC=DIC
Dovetek0=Zde můžete zadat libovolný text
Dovetek1=například slogan Vaší firmy apod.
Dovetek2=Tento text bude vytištěn na faktuře
Hotovo=Ano
ICO=ICO
Nazev=Název vaší firmy
Obec=Obec
PSC=PSC
Rejstrik=Dodavatel je zapsán...
TextRadku=Fakturujeme Vám úroky z prodlení dle výpočtu
Ulice=Sídlo vaší firmy
Zaokrouhlit=halere
STORE
)
[[ $first_run == "$wanted" ]] || fail "the first start wrote other settings: $first_run"
echo "ok: the first start wrote the 14 settings"

# 10 000 x 8,5 % x 102 / 365 = 237,534...
expect_text "the interest, rounded up to whole tens of haléř" "237,60 Kč" "$(interest)"
press alt+F4
expect_exit "the first run" 0

# As somebody would do it in a text editor.
sed -i 's/^Zaokrouhlit=.*/Zaokrouhlit=NE/; s/^Nazev=.*/Nazev=Pekárna U Dubu/' "$store"
edited=$(<"$store")
start_velta "$1"
open_main_window
expect_text "the interest, not rounded" "237,53 Kč" "$(interest)"
press alt+F4
expect_exit "the second run" 0
expect_text "the settings after the second run" "$edited" "$(<"$store")"
