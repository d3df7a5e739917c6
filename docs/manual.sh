#!/usr/bin/env bash
# Usage: manual.sh SITE SCRATCH_FOLDER DOXYFILE
# Makes the manual with the API reference in the folder SITE, and checks its links and those of the README. The Doxyfile has
# its output in the scratch folder. Needs the packages mkdocs, python3-pygments and doxygen.
set -euo pipefail
site=$1 scratch=$2 doxyfile=$3
sources=$(realpath "$(dirname "${BASH_SOURCE[0]}")/..")

rm -rf "$scratch/reference"
mkdir -p "$scratch"
cd "$scratch"
doxygen -l layout.xml
sed -i 's|<navindex>|&<tab type="user" url="../index.html" title="Manual"/>|' layout.xml
doxygen "$doxyfile"
STYLEATLAS_REFERENCE=$scratch/reference mkdocs --quiet build --strict --clean \
    --config-file "$sources/mkdocs.yml" --site-dir "$site"
python3 "$sources/docs/check_links.py" "$site" "$sources/README.md"
