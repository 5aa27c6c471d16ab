#!/usr/bin/env bash
# Seeds a Wine prefix with what the device would already hold. Takes the prefix path.
#
# - The categories database "\Categories Database", played on the desktop by
#   "C:\Windows\Categories Database.cedb". The file is UTF-8 text, one record per line, properties
#   separated by TAB, each written PROPID=value with PROPID in hexadecimal: 4001001F is the name (a
#   text), 40020002 the category's number (a 16-bit integer). Lines starting with '#' are comments.
# - A few items of the Today screen under HKLM\SOFTWARE\Microsoft\Today\Items: the system's own
#   (types 0 to 2) and three plug-ins of type 4, one of them switched off, so that a plug-in can be
#   added as a tab.
# - Two custom alphabets of the contacts search bar in "\Program Files\Orvane\Quillory\CustomAlphabets"
#   (from resources/alphabets, UTF-16 text without a byte-order mark): Thai.txt, offered by the
#   alphabet selection, and Latvian.txt, which its name test passes over (the first '.', 't' or 'x'
#   of the name must stand four characters from its end).
# - Three sample colour schemes in "\Program Files\Orvane\Quillory\Schemes" (from
#   resources/schemes): a light, a dark and a high-contrast look, ready to load on the Colours page.
# - Six sample category icons (12 x 12, green transparent) in
#   "\Program Files\Orvane\Quillory\CategoryIcons", named after categories above, so that the
#   Categories page shows them and its icon chooser offers them; and one icon set, Flat.bmp, in
#   "\Program Files\Orvane\Quillory\Icons" for the icon set chooser (both from resources/icons).
#
# Each part is seeded once only, so that the user's edits to it survive.
#
# Usage: seed-device.sh [--pim NAMES] WINEPREFIX
# --pim makes the registry look as if other PIM applications were installed, for the PIM page:
# NAMES is a comma-separated list of informant (Pocket Informant), fusion (Agenda Fusion) and
# agendaone (Agenda One); none removes what an earlier --pim wrote. Without it nothing changes.
set -euo pipefail

usage() { echo "usage: seed-device.sh [--pim informant,fusion,agendaone|none] WINEPREFIX" >&2; exit 2; }
pim=
while [ $# -gt 1 ]; do
    case $1 in
        --pim) pim=$2; shift 2 ;;
        --pim=*) pim=${1#--pim=}; shift ;;
        *) usage ;;
    esac
done
[ $# -eq 1 ] || usage
prefix=$1
windows=$prefix/drive_c/windows
[ -d "$windows" ] || { echo "error: $windows does not exist (not a Wine prefix?)" >&2; exit 1; }

seed_categories() {
    local database=$windows/Categories\ Database.cedb
    [ -e "$database" ] && return 0
    local categories=(Business Personal Holiday Gifts Ideas "Key Customer" Miscellaneous "Hot Contacts"
                      Competition Favorites International Status Travel Family "VIP Clients" Waiting)
    {
        printf '# Categories of the device: name (4001001F), number (40020002).\n'
        local number=1 name
        for name in "${categories[@]}"; do
            printf '4001001F=%s\t40020002=%d\n' "$name" "$number"
            number=$((number + 1))
        done
    } >"$database.tmp"
    mv "$database.tmp" "$database"
}

seed_today_items() {
    local marker=$prefix/.ql-today-items
    [ -e "$marker" ] && return 0
    local file
    file=$(mktemp --suffix=.reg)
    # name|Type|Enabled|DLL (an empty DLL is left out)
    local items=(
        'Date|0|1|'
        'Owner Info|1|1|'
        'Messaging|2|1|'
        'Weather Now|4|1|\Program Files\Weather Now\WeatherToday.dll'
        'Battery Meter|4|1|\Windows\BattMeterToday.dll'
        'Pocket Notes|4|0|\Program Files\Pocket Notes\PNToday.dll'
    )
    {
        printf 'REGEDIT4\n'
        local item name type enabled dll order=1
        for item in "${items[@]}"; do
            IFS='|' read -r name type enabled dll <<<"$item"
            printf '\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Today\\Items\\%s]\n' "$name"
            printf '"Type"=dword:%08x\n"Enabled"=dword:%08x\n"Order"=dword:%08x\n' "$type" "$enabled" "$order"
            [ -n "$dll" ] && printf '"DLL"="%s"\n' "${dll//\\/\\\\}"
            order=$((order + 1))
        done
    } >"$file"
    WINEPREFIX=$prefix wine reg import "Z:${file//\//\\}" >/dev/null 2>&1 \
        || { rm -f "$file"; echo "error: could not write the Today items of $prefix" >&2; exit 1; }
    rm -f "$file"
    touch "$marker"
}

# Copies the repository's sample files matching `pattern` under resources/ into `folder` of the
# device layout, once per prefix (the user's later changes there are kept).
seed_samples_once() {
    local name=$1 pattern=$2 folder="$prefix/drive_c/Program Files/Orvane/Quillory/$3"
    local marker=$prefix/.ql-$name
    [ -e "$marker" ] && return 0
    mkdir -p "$folder"
    cp -n "$(dirname "$0")/../resources/"$pattern "$folder/"
    touch "$marker"
}

seed_custom_alphabets() { seed_samples_once custom-alphabets 'alphabets/*.txt' CustomAlphabets; }
seed_sample_schemes() { seed_samples_once sample-schemes 'schemes/*.scm' Schemes; }
seed_sample_icons() {
    seed_samples_once sample-icons 'icons/categories/*.bmp' CategoryIcons
    seed_samples_once sample-icon-sets 'icons/sets/*.bmp' Icons
}

# The values the PIM page detects an application by: a non-zero "version", a non-zero "VerMajor",
# a non-empty "InstallPath".
seed_pim() {
    local informant='HKCU\Software\WebIS\PocketInformant'
    local fusion='HKLM\SOFTWARE\Developer One, Inc.\Agenda Fusion'
    local agendaone='HKCU\SOFTWARE\Developer One\Agenda One'
    local names name
    IFS=, read -r -a names <<<"$1"
    for name in "${names[@]}"; do
        case $name in
            informant) reg_add "$informant" version REG_DWORD 7 ;;
            fusion) reg_add "$fusion" VerMajor REG_DWORD 3 ;;
            agendaone) reg_add "$agendaone" InstallPath REG_SZ '\Program Files\Agenda One' ;;
            none) reg_delete "$informant" version; reg_delete "$fusion" VerMajor; reg_delete "$agendaone" InstallPath ;;
            *) echo "error: unknown PIM application '$name'" >&2; usage ;;
        esac
    done
}
reg_add() {
    WINEPREFIX=$prefix wine reg add "$1" /v "$2" /t "$3" /d "$4" /f >/dev/null 2>&1 \
        || { echo "error: could not write $1 in $prefix" >&2; exit 1; }
}
reg_delete() { WINEPREFIX=$prefix wine reg delete "$1" /v "$2" /f >/dev/null 2>&1 || true; }

seed_categories
seed_today_items
seed_custom_alphabets
seed_sample_schemes
seed_sample_icons
[ -z "$pim" ] || seed_pim "$pim"
