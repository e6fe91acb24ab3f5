# What the commands of transcripts find. $0 is the console program, $1 the folder of the sample data,
# $2 the case's own, $3 its database where there is a server.
set -o pipefail
export HOME=$2 GRDX_SUITE=$2/suite XDG_CONFIG_HOME=$2/configuration LC_ALL=C.UTF-8
program=$0 samples=$1 base=$2
sheets=$2/suite/output/2026-017/室内曲线
transcripts=$(dirname "${BASH_SOURCE[0]}")  # this folder
database=$3

# Tells of a status other than 0 on standard error.
grdx() {
    if [ "${1-}" = new ] && [ -n "${GRDX_TEST_SERVER-}" ]; then
        set -- "$@" --database "${GRDX_TEST_SERVER/=postgres/=$database}"
    fi
    timeout 60 "$program" "$@"
    local status=$?
    [ $status = 0 ] || echo "status $status" >&2
    return $status
}
# A suite folder with the sample project, 2026-017, of that standard code.
project() {
    grdx new suite --number 2026-017 --name 滨江新城一期 --code "${1-0}" > /dev/null &&
        grdx import samples "$samples/samples.csv" > /dev/null &&
        grdx import layers "$samples/layers.csv" > /dev/null
}
# A table of these sieve items.
sieves() { printf '%s\n' borehole,sample,depth,thickness,method,total,size,mass "$@"; }
# A suite folder with an empty project of the same number.
empty() { grdx new suite --number 2026-017 --name 桥 > /dev/null; }
# Samples of a borehole, all of the same grading, by that method: samples METHOD BOREHOLE SAMPLE...
samples() {
    { sieves
      for sample in "${@:3}"; do
          for size in 2 0.5 0.25 0.075 0; do echo "$2,$sample,1.5,0.3,$1,50,$size,10"; done
      done; } | grdx import samples - > /dev/null
}
# Layers of the same grading: layers MAIN,SUB...
layers() {
    { echo main,sub,size,percent
      for layer; do
          for part in 20,20 2,30 0.5,40 0,10; do echo "$layer,$part"; done
      done; } | grdx import layers - > /dev/null
}
# Runs a script of these lines.
type() { printf '%s\n' "$@" | grdx script -; }
marks() { utf8 suite/marks.ini; }
# Keeps the suite folder as it is, and puts it back.
keep() { rm -rf kept && cp -a suite kept && copy "$database" kept; }
back() { rm -rf suite && cp -a kept suite && copy kept "$database"; }
# Makes a database of the server, where there is one, a copy of another.
copy() {
    [ -z "${GRDX_TEST_SERVER-}" ] || psql -q -c "DROP DATABASE IF EXISTS $2" \
        -c "CREATE DATABASE $2 TEMPLATE $1"
}
# Runs a command, and tells what it has changed in the suite folder.
unchanged() { rm -rf before && cp -a suite before; "$@"; diff -rq suite before; }
# Puts another text in a file of the suite folder, which must have the first.
edit() {
    grep -qF -- "$2" "suite/$1" || echo "$1 lacks $2"
    local content && content=$(< "suite/$1") && printf '%s\n' "${content//"$2"/"$3"}" > "suite/$1"
}
# Puts a link to $2 in the place of $1.
plant() { rm -rf "$1" && mkdir -p "$(dirname "$1")" && ln -s "$2" "$1"; }
# What a check finds that matches, of codes that not half of the sample data have; then the suite
# folder is as it was kept.
findings() { grdx check | grep -v ' size-not-stored \| d10-not-reached ' | grep -e "$1"; back; }
utf8() { iconv -f GBK -t UTF-8 "$1" | tr -d '\r'; }
# The fields of JSON texts, one a line.
fields() { sed 's/,"/,\n"/g; s/\([{[]\)\("\|{\)/\1\n\2/g'; }
# The handle of a sheet's first curve.
curve() { grdx info "$1" | awk '$1 == "curve" { print "#" $2; exit }'; }
