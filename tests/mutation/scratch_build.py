"""A copy of the project that is built once and whose parts under test are then
exchanged for changed ones.

The copy differs in its CMake files alone: the sources under test and the simulated
Windows become shared libraries, so that a changed source is one compilation and one
link and the test programs stay as they are.
"""
import json
import os
import pathlib
import re
import resource
import shlex
import shutil
import signal
import subprocess
from typing import NamedTuple

CHANGES_OF_THE_COPY = [
    ('CMakeLists.txt', 'set(CMAKE_CXX_VISIBILITY_PRESET hidden)', 'set(CMAKE_CXX_VISIBILITY_PRESET default)'),
    ('CMakeLists.txt', 'set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)', ''),
    ('simulated_windows/CMakeLists.txt', 'add_library(machine_description STATIC', 'add_library(machine_description SHARED'),
    ('simulated_windows/CMakeLists.txt', 'add_library(simulated_windows STATIC', 'add_library(simulated_windows SHARED'),
    ('src/CMakeLists.txt', 'add_library(vksysteminfo_internal STATIC)',
     'add_library(vksysteminfo_internal SHARED)\n'
     # Few: a large precompiled header takes longer to load than these files to compile.
     'target_precompile_headers(vksysteminfo_objects PRIVATE <QtCore/QString> <QtCore/QStringList> <functional>'
     ' <windows.h>)'),
    # Answers to the sources under test, which are in the test program no longer.
    ('tests/opengl/gl_strings.cpp', '!= gl_strings::moduleOf(&gl_strings::answer)',
     '!= gl_strings::moduleOf(dlsym(RTLD_DEFAULT, "_ZN6velkor10SystemInfo9separatorEv"))'),
]
# Memory that nobody clears shows a pattern instead of what happens to be there.
FLAGS = '-O0 -w -ftrivial-auto-var-init=pattern'
# Tests that run no code of src/, those of an installed package, and those that take minutes.
OTHER_TESTS = re.compile(r'contract_|simulated_|machine_|registry_file|registry_tree|system_file|ansi_code_page'
                         r'|windows_files|wide_c_library|consumer$|exports$|memcheck_|msvc_|fuzz_|failing_calls$|changing_windows$')
LIBRARY = 'libvksysteminfo_internal.so' # what most tests are linked with
WHOLE_LIBRARY = 'libvkSystemInfo.so' # what hosts load
ADDRESS_SPACE = 6 << 30 # what an endless text may take
WALL_SECONDS = 240


class Test:
    def __init__(self, description):
        properties = {p['name']: p['value'] for p in description.get('properties', [])}
        self.name = description['name']
        self.command = description['command']
        self.directory = properties.get('WORKING_DIRECTORY')
        self.environment = dict(entry.split('=', 1) for entry in properties.get('ENVIRONMENT', []))
        self.cpu_seconds = 0.0 # of the unchanged sources


class Variant(NamedTuple):
    folder: pathlib.Path
    objects: dict # in place of those of the build


class ScratchBuild:
    def __init__(self, project, directory, only_tests=()):
        self.project = pathlib.Path(project)
        self.only_tests = only_tests # by name; empty: all of them
        self.directory = pathlib.Path(directory).resolve()
        self.source = self.directory / 'source'
        self.build = self.directory / 'build'
        self.changed = self.directory / 'changed' # where the programs look first: the variant in use
        self.tests = {}
        self.links = {}
        self.compilations = {}

    def prepare(self):
        self._call(self.project / 'scripts/install-dependencies', 'mutation')
        self._copy()
        if not (self.build / 'build.ninja').exists():
            self._call('cmake', '-G', 'Ninja', '-S', self.source, '-B', self.build, '-DCMAKE_BUILD_TYPE=',
                       f'-DCMAKE_CXX_FLAGS={FLAGS}', '-DCMAKE_EXPORT_COMPILE_COMMANDS=ON',
                       f'-DCMAKE_EXE_LINKER_FLAGS=-Wl,-rpath,{self.changed} -Wl,--enable-new-dtags',
                       '-DCMAKE_SHARED_LINKER_FLAGS=-fuse-ld=gold') # the fast one
        self._call('cmake', '--build', self.build, '--target', 'vkSystemInfo', *self._programs(), '--', '-j2')
        self.tests = {description['name']: Test(description) for description in self._descriptions_of_tests()}
        self._read_commands()

    def _copy(self):
        names = subprocess.run(['git', '-C', self.project, 'ls-files', '-z', '--cached', '--others', '--exclude-standard'],
                               check=True, capture_output=True, text=True).stdout.split('\0')
        names = [name for name in names if name and (self.project / name).is_file()]
        for name in names:
            content = (self.project / name).read_bytes()
            for file, old, new in CHANGES_OF_THE_COPY:
                if file == name:
                    if content.count(old.encode()) != 1:
                        raise SystemExit(f'{name} no longer has one "{old}"')
                    content = content.replace(old.encode(), new.encode())
            copy = self.source / name
            if copy.exists() and copy.read_bytes() == content:
                continue # keeps its time, so that nothing is built again
            copy.parent.mkdir(parents=True, exist_ok=True)
            copy.write_bytes(content)
            copy.chmod((self.project / name).stat().st_mode)
        for copy in list(self.source.rglob('*')):
            if copy.is_file() and str(copy.relative_to(self.source)) not in set(names):
                copy.unlink()

    def _call(self, *command):
        subprocess.run([str(part) for part in command], check=True)

    def _read_commands(self):
        for entry in json.loads((self.build / 'compile_commands.json').read_text()):
            if 'vksysteminfo_objects.dir' in entry['command'] and entry['file'].startswith(str(self.source / 'src')):
                name = os.path.relpath(entry['file'], self.source)
                command = shlex.split(entry['command'])
                at = command.index('-o')
                del command[command.index('-c'):]
                self.compilations[name] = (command[:at], (self.build / 'src/CMakeFiles/vksysteminfo_objects.dir'
                                                          / (os.path.relpath(name, 'src') + '.o')))
        for library in (LIBRARY, WHOLE_LIBRARY):
            target = f'bin/{library}' if library == LIBRARY else self._versioned(library)
            commands = subprocess.run(['ninja', '-C', self.build, '-t', 'commands', '-s', target], check=True,
                                      capture_output=True, text=True).stdout.splitlines()
            link = next(c for c in commands if ' -shared ' in c)
            link = re.search(r'(/\S*(?:c|g)\+\+ .*?)(?: && |$)', link).group(1)
            self.links[library] = shlex.split(link)
        depends = subprocess.run(['ninja', '-C', self.build, '-t', 'deps'], check=True, capture_output=True, text=True).stdout
        self.dependents = {}
        for block in depends.split('\n\n'):
            lines = block.splitlines()
            match = lines and re.match(r'src/CMakeFiles/vksysteminfo_objects\.dir/(.*)\.o:', lines[0])
            for line in lines[1:] if match else []:
                header = os.path.relpath(os.path.join(self.build, line.strip()), self.source)
                if header.startswith('src/') and header.endswith('.h'):
                    self.dependents.setdefault(header, []).append('src/' + match.group(1))

    def _versioned(self, library):
        return 'bin/' + next(p.name for p in (self.build / 'bin').glob(library + '.*.*.*'))

    def _programs(self):
        """The test programs; ctest names no command before its program is built."""
        wanted = {description['name'] for description in self._descriptions_of_tests()}
        programs = set()
        for file in self.build.rglob('CTestTestfile.cmake'):
            for line in file.read_text().splitlines():
                test = re.match(r'add_test\(\[?=?\[?(\w+)', line)
                if test and test.group(1) in wanted:
                    programs.update(re.findall(r'/bin/(test_\w+)"', line))
        return sorted(programs)

    def _descriptions_of_tests(self):
        shown = subprocess.run(['ctest', '--show-only=json-v1'], cwd=self.build, check=True, capture_output=True, text=True)
        return [d for d in json.loads(shown.stdout)['tests']
                if not OTHER_TESTS.match(d['name']) and (not self.only_tests or d['name'] in self.only_tests)]

    def variant(self, slot, name, text):
        """The library with another text of one source; None when it does not compile."""
        folder = self.directory / f'variant-{slot}'
        shutil.rmtree(folder, ignore_errors=True)
        file = folder / 'source' / name
        file.parent.mkdir(parents=True)
        file.write_text(text)
        objects = {}
        for dependent in self.dependents.get(name, [name]):
            command, original = self.compilations[dependent]
            compiled = folder / (dependent.replace('/', '_') + '.o')
            source = file if dependent == name else self.source / dependent
            # Includes in quotation marks are looked up in these folders first.
            command = command + ['-iquote', str(folder / 'source/src'), '-o', str(compiled), '-c', str(source)]
            if not self._succeeds(command):
                return None
            objects[os.path.relpath(original, self.build)] = str(compiled)
        variant = Variant(folder, objects)
        return variant if self.link(variant, LIBRARY) else None

    def link(self, variant, library):
        command = [variant.objects.get(part, part) for part in self.links[library]]
        at = command.index('-o') + 1
        file = variant.folder / os.path.basename(command[at])
        command[at] = str(file)
        soname = re.search(r'-soname,([^, ]+)', ' '.join(command)).group(1)
        if soname != file.name:
            (variant.folder / soname).symlink_to(file.name)
        return self._succeeds(command)

    def _succeeds(self, command):
        return subprocess.run(command, cwd=self.build, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL).returncode == 0

    def use(self, variant):
        self.changed.unlink(missing_ok=True)
        self.changed.symlink_to(variant.folder.name)

    def run(self, test, limit=None):
        """'' when the test passes, else the first sign of failure."""
        environment = dict(os.environ, QTEST_DISABLE_STACK_DUMP='1', **test.environment)
        cpu = int(limit or 600)

        def limits():
            resource.setrlimit(resource.RLIMIT_CPU, (cpu, cpu + 1))
            resource.setrlimit(resource.RLIMIT_AS, (ADDRESS_SPACE, ADDRESS_SPACE))
            resource.setrlimit(resource.RLIMIT_CORE, (0, 0))

        before = resource.getrusage(resource.RUSAGE_CHILDREN)
        process = subprocess.Popen(test.command, cwd=test.directory, env=environment, stdin=subprocess.DEVNULL,
                                   stdout=subprocess.PIPE, stderr=subprocess.STDOUT, preexec_fn=limits,
                                   start_new_session=True)
        try:
            output, _ = process.communicate(timeout=WALL_SECONDS)
        except subprocess.TimeoutExpired:
            os.killpg(process.pid, signal.SIGKILL)
            process.communicate()
            return 'took too long'
        after = resource.getrusage(resource.RUSAGE_CHILDREN)
        test.last_cpu = after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime
        if process.returncode == 0:
            return ''
        for line in output.decode(errors='replace').splitlines():
            if re.match(r'FAIL!|QFATAL|.*[Ff]ailed', line):
                return line[:160]
        return f'ended with {process.returncode}'
