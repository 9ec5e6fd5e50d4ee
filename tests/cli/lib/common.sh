# Shared set-up of the end-to-end scripts: a scratch folder, check(), and
# data files written byte by byte (header, 8-byte time/value records).
# Sourced with the script's arguments: $1 is the oproc binary.
set -u
OPROC=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work" || exit 1
fail=0
check() {  # check WHAT EXPECTED ACTUAL
    if [ "$2" != "$3" ]; then
        echo "FAIL: $1"
        diff <(printf '%s\n' "$2") <(printf '%s\n' "$3")
        fail=1
    fi
}

header() {  # header KINDNUMBER TYPE
    printf '%s \r\n' "$1"
    printf 'Output file for:%-24.24s by:%-24.24s \r\n' "sample" "TEST WRITER"
    printf 'Data for:%s\r\n' "hand made"
    printf 'Run date:%-10.10sND     %7d\r\n' "$2" 1
    printf 'File Version: \x07QUILLSTATFMT\r\n\x1a'
}
# The doubles 1 to 7 and -1, little-endian, for records given as numbers.
declare -A d=([1]='\x00\x00\x00\x00\x00\x00\xf0\x3f' [2]='\x00\x00\x00\x00\x00\x00\x00\x40'
              [3]='\x00\x00\x00\x00\x00\x00\x08\x40' [4]='\x00\x00\x00\x00\x00\x00\x10\x40'
              [5]='\x00\x00\x00\x00\x00\x00\x14\x40' [6]='\x00\x00\x00\x00\x00\x00\x18\x40'
              [7]='\x00\x00\x00\x00\x00\x00\x1c\x40' [-1]='\x00\x00\x00\x00\x00\x00\xf0\xbf')
