#!/usr/bin/env python3
"""Holds the sources and the archives against the floors of the house: check_floors.py BUILD_FOLDER

  - Includes: frame, dialogs, controls and model know the class framework, each other downward, the language library, the
    public header and the C++ library; no Qt, no POSIX, nothing of the layer's inside. The layer knows nothing above it.
    Tools know the model, the language library and the layer's floor without windows. Bindings know the public headers;
    what paints there takes figures, dashes and rasteriser from the library. The host knows the public headers, the
    bindings and the headers of the unit and the language library. No circle of files.
  - Links: no archive needs a symbol that only an archive of a floor above it defines.
  - Exports: no program exports a symbol of the layer, which the library would be bound to in place of its own.
"""
import re
import subprocess
import sys
from graphlib import CycleError, TopologicalSorter
from pathlib import Path

top = Path(__file__).resolve().parent.parent
build = Path(sys.argv[1])
faults = []

# What a floor may include besides itself. "framework" is platform/include.
BELOW = {
    'frame': ['dialogs', 'controls', 'model', 'include', 'framework', 'language'],
    'dialogs': ['controls', 'model', 'framework', 'language'],
    'controls': ['model', 'framework', 'language'],
    'model': ['framework', 'language'],
    'platform': [],
    'components': ['framework', 'system'],
    'tools': ['bindings', 'model', 'include', 'framework', 'system', 'language', 'units'],
    'bindings': ['include', 'figures', 'dashes', 'rasteriser'],
    'host': ['bindings', 'include', 'language', 'units'],
    'include': [],
}
PLACES = {'framework': 'platform/include/', 'system': 'platform/system/',
          'language': 'components/glossa/Glossa.h', 'units': 'components/mensura/mensura.h',
          'figures': 'model/SymbolFigure.h', 'dashes': 'platform/gdi/DashPattern.h',
          'rasteriser': 'platform/gdi/Rasteriser.h'}
WITH_FRAMEWORK_ALONE = ['frame', 'dialogs', 'controls', 'model']
SEARCH = ['', 'include', 'platform/include', 'platform/system', 'platform/gdi', 'components/glossa', 'components/mensura']

# From the ground up; those in a row are of one floor. A folder stands for the objects of an object library.
ARCHIVES = [
    ['platform/libplatform_system.a', 'platform/CMakeFiles/platform_message_box_loader.dir'],
    ['platform/libplatform_resources.a', 'platform/libplatform_gdi.a'],
    ['platform/libplatform_user.a'],
    ['platform/libplatform_comctl_parts.a', 'platform/libplatform_shell.a', 'platform/CMakeFiles/platform_message_box.dir'],
    ['model/libstyleatlas_model.a'],
    ['controls/libstyleatlas_controls.a', 'controls/libstyleatlas_color_messages.a'],
    ['dialogs/libstyleatlas_dialogs.a'],
    ['frame/CMakeFiles/styleatlas_module.dir', 'frame/CMakeFiles/styleatlas_exports.dir'],
    ['bindings/CMakeFiles/styleatlas-qt.dir', 'bindings/libstyleatlas_terminal.a',
     'bindings/libstyleatlas_distinct.a'],
    ['tools/CMakeFiles/atlas-layout.dir', 'host/libatlas_host_parts.a'],
]


def check_includes():
    graph = {}
    for floor, below in BELOW.items():
        allowed = tuple(PLACES.get(name, name + '/') for name in below + [floor])
        for file in (f for f in (top / floor).rglob('*') if f.suffix in ('.h', '.cpp', '.c')):
            source = str(file.relative_to(top))
            for name in re.findall(r'^ *# *include *[<"]([^>"]+)[>"]', file.read_text(), re.M):
                places = [file.parent, *(top / folder for folder in SEARCH)]
                target = next((p / name for p in places if (p / name).is_file()), None)
                if target is None:
                    if floor in WITH_FRAMEWORK_ALONE and not re.fullmatch('[a-z_]+', name):
                        faults.append(f'{source} includes <{name}>, which is neither framework nor C++ library')
                    continue
                target = str(target.resolve().relative_to(top))
                graph.setdefault(source, set()).add(target)
                if not target.startswith(allowed):
                    faults.append(f'{source} includes {target}, which is not below its floor')
    if not graph:
        faults.append('no include was checked')
    try:
        TopologicalSorter(graph).prepare()
    except CycleError as error:
        faults.append('the includes go in a circle: ' + ' '.join(error.args[1]))


def symbols(archive):
    """The names that an archive defines, and those that it needs from elsewhere."""
    files = [build / archive] if archive.endswith('.a') else sorted((build / archive).rglob('*.o'))
    if not files:
        sys.exit(f'{archive} has no objects')
    defined, needed = set(), set()
    for line in subprocess.check_output(['nm', '-P', '-g', *files], text=True).splitlines():
        fields = line.split()
        if len(fields) > 1 and fields[1] in 'UwvTtDdBbRrVWuiC':
            (needed if fields[1] in 'Uwv' else defined).add(fields[0])
    return defined, needed - defined


def check_links():
    floors = [{archive: symbols(archive) for archive in row} for row in ARCHIVES]
    for number, row in enumerate(floors):
        reached = set().union(*(defined for lower in floors[:number + 1] for defined, _ in lower.values()))
        for archive, (_, needed) in row.items():
            for higher in floors[number + 1:]:
                for other, (defined, _) in higher.items():
                    for symbol in sorted(needed & defined - reached):
                        faults.append(f'{archive} needs {symbol} of {other}, which stands above it')


def check_exports():
    for program in ('atlas-host', 'atlas-layout'):
        for symbol in subprocess.check_output(['nm', '-D', '-P', build / 'bin' / program], text=True).splitlines():
            name, kind = symbol.split()[:2]
            if 'B10styleatlas' in name and kind not in 'Uwv':
                faults.append(f'{program} exports {name}')


check_includes()
check_links()
check_exports()
print('\n'.join(faults))
sys.exit(bool(faults))
