#!/usr/bin/env bash
# Seeds a Wine prefix with what the device would already hold: the categories database
# "\Categories Database", played on the desktop by "C:\Windows\Categories Database.cedb".
# Takes the prefix path. An existing database is left alone, so edits to it survive.
#
# The file is UTF-8 text, one record per line, properties separated by TAB, each written
# PROPID=value with PROPID in hexadecimal: 4001001F is the name (a text), 40020002 the
# category's number (a 16-bit integer). Lines starting with '#' are comments.
set -euo pipefail

prefix=${1:?usage: seed-device.sh WINEPREFIX}
windows=$prefix/drive_c/windows
database=$windows/Categories\ Database.cedb
[ -d "$windows" ] || { echo "error: $windows does not exist (not a Wine prefix?)" >&2; exit 1; }
[ -e "$database" ] && exit 0

categories=(Business Personal Holiday Gifts Ideas "Key Customer" Miscellaneous "Hot Contacts"
            Competition Favorites International Status Travel Family "VIP Clients" Waiting)
{
    printf '# Categories of the device: name (4001001F), number (40020002).\n'
    number=1
    for name in "${categories[@]}"; do
        printf '4001001F=%s\t40020002=%d\n' "$name" "$number"
        number=$((number + 1))
    done
} >"$database.tmp"
mv "$database.tmp" "$database"
