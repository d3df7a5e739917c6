# The Debian packages: the libraries, the editor, the painting with Qt, what is needed to build against them, the tool
# for layout files, and the sample host. They take the files of the release build as they are: libraries and programs find each other and their
# data by relative paths, so that the prefix of the build doesn't matter, and debugging information is stripped on the way.
set(maintainer "Style Atlas developers <developers@styleatlas.invalid>")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME styleatlas)
set(CPACK_PACKAGE_CONTACT ${maintainer})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "") # each package has one of its own, the first line of its description
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/OpenFolders.cmake)

set(CPACK_COMPONENTS_ALL runtime editor development qt qt_development python tool host)
set(CPACK_PROJECT_CONFIG_FILE ${CMAKE_CURRENT_LIST_DIR}/WithManual.cmake)
set(CPACK_STYLEATLAS_MANUAL ${CMAKE_BINARY_DIR}/${CMAKE_INSTALL_DATADIR}/doc/styleatlas-doc/html/index.html)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_COMPONENT_EDITOR_DEPENDS runtime)
set(CPACK_COMPONENT_DEVELOPMENT_DEPENDS runtime)
set(CPACK_COMPONENT_TOOL_DEPENDS runtime)
set(CPACK_COMPONENT_QT_DEPENDS runtime)
set(CPACK_COMPONENT_QT_DEVELOPMENT_DEPENDS qt development)
set(CPACK_COMPONENT_PYTHON_DEPENDS runtime)
set(CPACK_COMPONENT_HOST_DEPENDS runtime editor qt tool)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_SOURCE styleatlas)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

# What the libraries need is read from them. They need each other, and no package that is installed has them yet.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS
  ${CMAKE_LIBRARY_OUTPUT_DIRECTORY} ${CMAKE_LIBRARY_OUTPUT_DIRECTORY}/${STYLEATLAS_PRIVATE_NAME})
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME libstyleatlas${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_RECOMMENDS libstyleatlas-editor)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA
  ${CMAKE_CURRENT_LIST_DIR}/triggers ${CMAKE_CURRENT_LIST_DIR}/symbols)
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION
"styles of the curves of measured data - shared libraries
The style atlas says, for every measured quantity and every file column, how
its curve is drawn: by which symbol and by which line. A measurement program
loads it and asks.

This package has the shared libraries, the catalogue of quantities and the
translations.")

set(CPACK_DEBIAN_EDITOR_PACKAGE_NAME libstyleatlas-editor)
set(CPACK_DEBIAN_EDITOR_PACKAGE_SECTION libs)
# The texts of Qt's own dialogs in the user's language.
set(CPACK_DEBIAN_EDITOR_PACKAGE_RECOMMENDS qt6-translations-l10n)
set(CPACK_COMPONENT_EDITOR_DESCRIPTION
"styles of the curves of measured data - editor
The style atlas says, for every measured quantity and every file column, how
its curve is drawn: by which symbol and by which line.

This package has the windows of the library: the dialogs in which a user
changes the styles, and the message boxes. Without it programs get their
styles all the same, and messages go to standard error.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libstyleatlas-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION
"styles of the curves of measured data - development files
The style atlas says, for every measured quantity and every file column, how
its curve is drawn: by which symbol and by which line.

This package has what a measurement program is built with: the headers, the
CMake package, the pkg-config file, documentation and examples.")

set(CPACK_DEBIAN_QT_PACKAGE_NAME libstyleatlas-qt${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_QT_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_QT_PACKAGE_CONTROL_EXTRA ${CMAKE_CURRENT_LIST_DIR}/triggers)
set(CPACK_COMPONENT_QT_DESCRIPTION
"styles of the curves of measured data - painting with Qt
The style atlas says, for every measured quantity and every file column, how
its curve is drawn: by which symbol and by which line.

This package has the library that paints these symbols and lines with Qt, as
the editor shows them.")

set(CPACK_DEBIAN_QT_DEVELOPMENT_PACKAGE_NAME libstyleatlas-qt-dev)
set(CPACK_DEBIAN_QT_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_QT_DEVELOPMENT_PACKAGE_DEPENDS qt6-base-dev)
set(CPACK_COMPONENT_QT_DEVELOPMENT_DESCRIPTION
"styles of the curves of measured data - development files for Qt
The style atlas says, for every measured quantity and every file column, how
its curve is drawn: by which symbol and by which line.

This package has what a measurement program that paints styles with Qt is
built with: the header, the CMake package and the pkg-config file.")

set(CPACK_DEBIAN_PYTHON_PACKAGE_NAME python3-styleatlas)
set(CPACK_DEBIAN_PYTHON_PACKAGE_SECTION python)
set(CPACK_DEBIAN_PYTHON_PACKAGE_ARCHITECTURE all)
set(CPACK_DEBIAN_PYTHON_PACKAGE_DEPENDS "python3 (>= 3.9)")
set(CPACK_DEBIAN_PYTHON_PACKAGE_RECOMMENDS python3-matplotlib)
set(CPACK_COMPONENT_PYTHON_DESCRIPTION
"styles of the curves of measured data - Python package
The style atlas says, for every measured quantity and every file column, how
its curve is drawn: by which symbol and by which line.

This package has the Python package styleatlas, which asks for styles, opens
the editor, and gives the arguments for Matplotlib and other libraries that
plot.")

set(CPACK_DEBIAN_TOOL_PACKAGE_NAME atlas-layout)
set(CPACK_DEBIAN_TOOL_PACKAGE_SECTION science)
set(CPACK_COMPONENT_TOOL_DESCRIPTION
"explains, checks, compares and merges layout files of the style atlas
The style atlas keeps the styles of a measurement program in a layout file.
The program shows such files, says where they are damaged, compares and merges
them, writes them as JSON and reads that, and makes the folder in which they
are kept. It explains why a curve has its style, and finds curves that can't
be told apart. It needs no display.")

set(CPACK_DEBIAN_HOST_PACKAGE_NAME atlas-host)
set(CPACK_DEBIAN_HOST_PACKAGE_SECTION science)
# The folder of the icon, and the browser for the manual.
set(CPACK_DEBIAN_HOST_PACKAGE_RECOMMENDS "hicolor-icon-theme, xdg-utils")
set(CPACK_COMPONENT_HOST_DESCRIPTION
"lists and plots measured data in the styles of the style atlas
The program reads measured data from text files in columns, knows the
quantities in them, and asks the style atlas how each curve is drawn. It lists
the curves with their styles, and plots them in a window or into PNG, SVG and
PDF files. Its window changes the styles, and finds curves that look alike.")

set(CPACK_DEBIAN_MANUAL_PACKAGE_NAME styleatlas-doc)
set(CPACK_DEBIAN_MANUAL_PACKAGE_SECTION doc)
set(CPACK_DEBIAN_MANUAL_PACKAGE_ARCHITECTURE all)
set(CPACK_COMPONENT_MANUAL_DESCRIPTION
"styles of the curves of measured data - manual
The style atlas says, for every measured quantity and every file column, how
its curve is drawn: by which symbol and by which line.

This package has the manual for users, programmers and administrators, and the
API reference, as pages for a browser.")

include(CPack)
