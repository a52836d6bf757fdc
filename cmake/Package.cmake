# The packages that CPack makes of what is installed: `quorvane` for who uses the programs and
# `quorvane-dev` for who writes a host. tools/paquete calls it.
set(changelog packaging/debian/changelog)
file(STRINGS ${changelog} changelog_head LIMIT_COUNT 1)
if(NOT changelog_head MATCHES "^quorvane \\(${PROJECT_VERSION}\\) ")
  message(FATAL_ERROR "${changelog} doesn't begin with version ${PROJECT_VERSION}")
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME quorvane)
set(CPACK_PACKAGE_VENDOR Quorvane)
set(CPACK_PACKAGE_CONTACT "Quorvane <quorvane@quorvane.invalid>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/StripComments.cmake)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_COMPONENTS_ALL programas desarrollo)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)

set(CPACK_DEBIAN_PROGRAMAS_PACKAGE_NAME quorvane)
set(CPACK_DEBIAN_PROGRAMAS_PACKAGE_SECTION education)
set(CPACK_DEBIAN_PROGRAMAS_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PROGRAMAS_DESCRIPTION "registro y notas de las materias pendientes
Quorvane lleva las materias pendientes de un centro escolar: qué alumnos
deben qué materias de un curso anterior, en qué evaluaciones se califican y
quién las califica; y deja que tutores y profesores introduzcan las notas,
evaluación por evaluación, sin estorbarse.
.
Trae la aplicación de escritorio zendria y dos herramientas:
quorvane-escuela crea, comprueba y arregla bases de datos de centros, y
quorvane-guion hace el trabajo de las pantallas desde un guion. La base de
datos es un fichero, o está en un PostgreSQL o un SQL Server.")
if(TARGET zendria)
  # What the programs load while running, which no linker sees: the reader of the drawn icons,
  # and the toolkit's own texts in Spanish.
  set(CPACK_DEBIAN_PROGRAMAS_PACKAGE_DEPENDS "libqt6svg6, qt6-translations-l10n")
endif()
set(CPACK_DEBIAN_PROGRAMAS_PACKAGE_RECOMMENDS "bash-completion, fonts-dejavu-core, qt6-wayland")
set(CPACK_DEBIAN_PROGRAMAS_PACKAGE_SUGGESTS "odbc-postgresql, postgresql, tdsodbc, libsqliteodbc, man-db, sqlite3")

set(CPACK_DEBIAN_DESARROLLO_PACKAGE_NAME quorvane-dev)
set(CPACK_DEBIAN_DESARROLLO_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DESARROLLO_DESCRIPTION "biblioteca de materias pendientes, para aplicaciones propias
La biblioteca con la que una aplicación escolar abre en su propio proceso
las pantallas de materias pendientes, con sus cabeceras y lo que CMake
necesita para encontrarla.
.
Los adaptadores son componentes: SQLite, ODBC, las pantallas con Qt 6 y los
guiones. Cada uno necesita, para enlazarse, la biblioteca de su nombre.")
set(CPACK_DEBIAN_DESARROLLO_PACKAGE_RECOMMENDS "g++, cmake (>= 3.25), libsqlite3-dev")
set(CPACK_DEBIAN_DESARROLLO_PACKAGE_SUGGESTS "qt6-base-dev, unixodbc-dev, quorvane (= ${PROJECT_VERSION})")

include(CPack)
