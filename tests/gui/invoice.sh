#!/usr/bin/env bash
# invoice.sh PROGRAM PICTURES
# From a calculation to the penalty invoice on paper, by keys alone; without a printer it goes to a file.
source "$(dirname "$0")/desktop.sh" "$2"
need_tools pdftotext pdftoppm zbarimg
start_desktop
export CUPS_SERVER=$scratch/no-printers
invoice="$HOME/Penalizační faktura 2005001.pdf"

# page_is: what is on the printed page is what was wanted. Lines of the box that are empty are left out.
page_is() { diff "$scratch/wanted" <(printed_lines "$invoice" | grep -v '^    | *|$'); }

# As the first run writes it, but the firm's account is there.
mkdir -p "$XDG_CONFIG_HOME/velta"
cat >"$XDG_CONFIG_HOME/velta/velta.ini" <<'STORE'
[Settings]
Banka=19-2000145399/0800
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

start_velta "$1"
open_main_window
open_calculation
enter_single 10.3.2005 20.6.2005 '10 000'
press Tab Tab
fill 8,5

# The invoice opens with the keyboard in its first field, and Enter goes from field to field.
press alt+f
expect "the number of a new invoice" "(nothing)" field_text
picture 1-new-invoice
fill 2005001
press Return
fill 'Dlužník a syn, a. s.'
press Return
fill 'Krátká 3'
press Return

# The town is missing yet: the program says so and goes there.
press alt+t
answer_box
fill 'Brno'
press Return
fill '602 00'
press Return
fill 87654321
press Return
fill CZ87654321
press Return
fill 2005117
press Return
expect "the supplier" "Název vaší firmy" field_text
fill 'Novák a syn'
press Return Return Return Return Return Return
expect "the days until due" "(nothing)" field_text
type_text 14
press Return
expect "the item" $'Fakturujeme Vám úroky z prodlení dle výpočtu\t237,60 Kč' field_text
picture 2-filled-in

# Who cancels knows it: the program says nothing.
press alt+t
wait_until "the print dialog has the keyboard" is_active box
press Escape
wait_until "the print dialog is closed" is_closed box
stays "there is no message" is_closed box
[[ ! -e $invoice ]] || fail "a cancelled dialog has printed"

press alt+t
wait_until "the print dialog has the keyboard" is_active box
sleep 0.3  # until it is painted
press alt+t
wait_until "the print dialog is closed" is_closed box
# 10 000 x 8,5 % x 102 / 365 = 237,534...; the first run rounds up to whole tens of haléř.
today=$(date +%-d.%-m.%Y)
due=$(date -d '12:00 14 days' +%-d.%-m.%Y)
{
  cat <<'PAGE'
        Penalizační faktura číslo : 2005001
    |------------------------------------------------------------------------------------|
    |   Variabilní symbol    2005001                                                     |
PAGE
  printf '    |   Datum vystavení      %-60s|\n' "$today"
  printf '    |   Datum splatnosti     %-60s|\n' "$due"
  cat <<'PAGE'
    |------------------------------------------------------------------------------------|
    |   Dodavatel        IČO ICO               |  Odběratel       IČO 87654321           |
    |          DIČ DIC                         |          DIČ CZ87654321                 |
    |          Novák a syn                     |          Dlužník a syn, a. s.           |
    |          Sídlo vaší firmy                |          Krátká 3                       |
    |   PSC    Obec                            |  602 00  Brno                           |
    |------------------------------------------------------------------------------------|
    |Dodavatel je zapsán...                                                              |
    |------------------------------------------------------------------------------------|
    |Položka - popis                                                     Částka v Kč     |
    |------------------------------------------------------------------------------------|
    |Fakturujeme Vám úroky z prodlení dle výpočtu                        237,60 Kč       |
    |------------------------------------------------------------------------------------|
    |Faktura číslo                                                       2005117         |
    |Na částku                                                           10 000,00 Kč    |
    |Splatná dne                                                         10.3.2005       |
    |Uhrazená dne                                                        20.6.2005       |
    |Počet dnů prodlení                                                 102              |
    |Úroková sazba                                                       8,5 % ročně     |
    |Úhradu proveďte na číslo účtu                                                       |
    |19-2000145399/0800                                                                  |
    |Fakturoval                  -------------------------------------------             |
    |                            Razítko a podpis                                        |
    |Zde můžete zadat libovolný text                                                     |
    |například slogan Vaší firmy apod.                                                   |
    |Tento text bude vytištěn na faktuře                                                 |
    |------------------------------------------------------------------------------------|
     Faktura byla vystavena v programu Velta, kontakt https://velta.example/
PAGE
} >"$scratch/wanted"
wait_until "the file holds the invoice, column by column" page_is
pages=$(pdfinfo "$invoice" | sed -n 's/^Pages: *//p')
[[ $pages == 1 ]] || fail "the invoice takes $pages pages"
echo "ok: it is one page"
sleep 0.5
picture 3-where-it-is
pdftoppm -r 80 -png "$invoice" "$pictures/4-page"

# What a telephone reads from the page.
pdftoppm -r 200 -png -singlefile "$invoice" "$scratch/page"
expect_text "the payment code" \
  "SPD*1.0*ACC:CZ6508000000192000145399*AM:237.60*CC:CZK*X-VS:2005001*DT:$(date -d '12:00 14 days' +%Y%m%d)*MSG:PENALIZACNI FAKTURA 2005001" \
  "$(zbarimg -q --raw --nodbus "$scratch/page.png")"

# Who closes the invoice closes its calculation: there is nothing left to print.
wait_until "the keyboard is back" is_active main
press alt+k
menu z t
answer_box

press alt+F4
expect_exit "the end" 0
