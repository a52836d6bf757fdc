#!/usr/bin/env bash
# Holds the manual pages and the completions against what each program says in its --help.
# Arguments: the project's folder, and that of the programs built.
set -euo pipefail
cd "$1/packaging"
programs=$2
faults=0

fault() {
  echo "$*"
  faults=$((faults + 1))
}

# The long options in a text, in order.
options() { grep -oE -- '--[a-z]+(-[a-z]+)*' | sort -u; }
manual() { sed 's/\\-/-/g; s/\\f[BIRP]//g' "man/$1.1"; }
lacking() { comm -23 <(printf '%s\n' "$1") <(printf '%s\n' "$2"); }

# hold NAME-OF-TEXT TEXT'S-OPTIONS PROGRAM'S-OPTIONS: both ways.
hold() {
  local option
  for option in $(lacking "$3" "$2"); do fault "$1 lacks $option"; done
  for option in $(lacking "$2" "$3"); do fault "$1 tells of $option, which isn't there"; done
}

orders() { "$programs/quorvane-escuela" --help | sed -n '/^Órdenes:/,$s/^  \([a-z]*\) .*/\1/p'; }

everything() {
  "$programs/$1" --help
  if [ "$1" = quorvane-escuela ]; then
    for order in $(orders); do "$programs/$1" "$order" --help; done
  fi
}

# What bash offers for a line whose last word is being typed.
offered() {
  COMP_WORDS=("$@")
  COMP_CWORD=$(($# - 1))
  COMPREPLY=()
  "_${1//-/_}" 2>/dev/null
  printf '%s\n' "${COMPREPLY[@]}"
}

for program in quorvane-escuela quorvane-guion zendria; do
  [ -x "$programs/$program" ] || continue
  there=$(everything "$program" | options)
  [ -n "$there" ] || fault "$program --help names no option"
  hold "man/$program.1" "$(manual "$program" | sed '/^\.SH EJEMPLOS/,$d' | options)" "$there"
  hold "completion/_$program" "$(grep -v '^ *#' "completion/_$program" | sed 's/{-h,--help}/--help/' |
    options)" "$there"
  hold "completion/$program" "$(grep -v '^ *#' "completion/$program" | options)" "$there"
  for section in NOMBRE SINOPSIS DESCRIPCIÓN OPCIONES '"ESTADO DE SALIDA"' ENTORNO FICHEROS EJEMPLOS \
    '"VÉASE TAMBIÉN"'; do
    grep -qxF ".SH $section" "man/$program.1" || fault "man/$program.1 lacks $section"
  done
  if command -v groff >/dev/null; then
    warnings=$(groff -man -Kutf8 -Tutf8 -ww "man/$program.1" 2>&1 >/dev/null) || true
    [ -z "$warnings" ] || fault "man/$program.1: $warnings"
  fi
  # shellcheck source=/dev/null
  . "completion/$program"
done

for order in $(orders); do
  manual quorvane-escuela | grep -x "\.B $order" >/dev/null || fault "man/quorvane-escuela.1 lacks $order"
  offered quorvane-escuela "${order:0:3}" | grep -qx "$order" || fault "bash doesn't offer $order"
  for option in $("$programs/quorvane-escuela" "$order" --help | options); do
    offered quorvane-escuela "$order" "$option" | grep -qx -- "$option" ||
      fault "bash doesn't offer $option after $order"
  done
done
[ -n "$(orders)" ] || fault "quorvane-escuela --help names no order"

# Files: those of the kind asked for and folders, whatever blanks they have.
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
touch "$folder/mi escuela.sqlite" "$folder/una sesión.guion" "$folder/otra.txt"
mkdir "$folder/otro curso"
expect() {
  local wanted=$1 got
  shift
  got=$(offered "$@" | sort | tr '\n' '|')
  [ "$got" = "$wanted" ] || fault "bash offers $got for $*"
}
schools="$folder/mi escuela.sqlite|$folder/otro curso|"
expect "$schools" quorvane-escuela comprobar "$folder/"
expect "$schools" quorvane-guion --bd "$folder/"
expect "$folder/otro curso|$folder/una sesión.guion|" quorvane-guion "$folder/"
expect "|" quorvane-guion --usuario "$folder/"
[ -x "$programs/zendria" ] && expect "$schools" zendria "$folder/"

! command -v desktop-file-validate >/dev/null || desktop-file-validate zendria.desktop ||
  fault "zendria.desktop isn't a desktop entry"

[ "$faults" -eq 0 ] || exit 1
echo "Manual pages, completions and the desktop entry agree with the programs"
