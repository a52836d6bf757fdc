# What ./run and ./check share. Sourced by them, from the project's folder.

mensaje() { printf '\n== %s\n' "$*"; }

# etapa NAME: a stage of a long task begins, and the one before it ends. tiempos prints them all.
etapas=()
etapa() {
  etapas+=("$SECONDS $*")
  mensaje "$*"
}
tiempos() {
  [ "${#etapas[@]}" -eq 0 ] && return
  local fin=$SECONDS lineas='' i desde nombre
  for ((i = ${#etapas[@]} - 1; i >= 0; --i)); do
    desde=${etapas[i]%% *} nombre=${etapas[i]#* }
    lineas="$(printf '%4d min %02d s  %s' $(((fin - desde) / 60)) $(((fin - desde) % 60)) "$nombre")"$'\n'$lineas
    fin=$desde
  done
  printf '\n== Tiempos\n%s%4d min %02d s  en total\n' "$lineas" $((SECONDS / 60)) $((SECONDS % 60))
}

fallo() {
  printf '\nERROR: %s\n' "$*" >&2
  exit 1
}

# Installs the packages named that the machine lacks, and says which.
instalar() {
  local faltan=() paquete
  for paquete in "$@"; do
    dpkg-query -W -f '${Status}' "$paquete" 2>/dev/null | grep -q 'install ok installed' ||
      faltan+=("$paquete")
  done
  [ "${#faltan[@]}" -eq 0 ] && return
  mensaje "Se instalan: ${faltan[*]}"
  command -v apt-get >/dev/null ||
    fallo "No hay apt-get en esta máquina; instale usted mismo: ${faltan[*]}"
  local como=()
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null ||
      fallo "Hace falta ser administrador (o tener sudo) para instalar: ${faltan[*]}"
    como=(sudo)
  fi
  "${como[@]}" apt-get update -q >/dev/null || fallo "apt-get update no ha podido leer los paquetes"
  "${como[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y -q --no-install-recommends "${faltan[@]}" >/dev/null ||
    fallo "apt-get no ha podido instalar: ${faltan[*]}"
}

# What the programs are built with and run on.
paquetes_de_construccion=(
  g++ cmake ninja-build ccache pkgconf
  libsqlite3-dev unixodbc-dev nlohmann-json3-dev libcli11-dev libsodium-dev
  qt6-base-dev qt6-svg-dev libgl1-mesa-dev libxcb1-dev qt6-qpa-plugins fonts-dejavu-core
  qt6-translations-l10n
  libgtest-dev libgmock-dev libsm-dev libice-dev qt6-base-private-dev python3 perl
)

# What the tests use besides: ODBC drivers, a server, a T-SQL parser, line counters and checkers, and a desktop
# without a screen.
paquetes_de_pruebas=(
  libsqliteodbc tdsodbc odbc-postgresql postgresql pgbouncer openssl libsql-translator-perl gcovr
  desktop-file-utils groff-base
  xvfb openbox xdotool wmctrl
  clang-format clang-tidy iwyu git
)

# construir PRESET [TARGET...]: configures (once) and builds a preset, or only those targets; the
# build itself sees what has changed.
construir() {
  local preset=$1 salida
  shift
  etapa "Se construye ($preset)"
  salida=$(cmake --preset "$preset" 2>&1) || {
    printf '%s\n' "$salida" >&2
    fallo "cmake no ha podido configurar el proyecto"
  }
  cmake --build --preset "$preset" ${1:+--target "$@"} || fallo "La construcción ha fallado"
}
