"""What scripts/mutate works with: a copy of the tree, its builds, and which test reaches which line."""

import collections
import hashlib
import json
import os
import pathlib
import random
import re
import resource
import shutil
import signal
import subprocess
import tempfile

from rules import Source

ROOT = pathlib.Path(__file__).resolve().parents[2]
# The folders of the product, which CMakeLists.txt adds in one block.
ROOMS = tuple(re.findall(r"\nadd_subdirectory\((\w+)\)", (ROOT / "CMakeLists.txt").read_text()
                         .partition("# The rooms")[2].partition("\n\n")[0]))
BUILT = (*ROOMS, "tests", "tools", "fuzz", "resources", "cmake", "CMakeLists.txt")
WORK = ROOT / "build-mutate"
TREE, PLAIN, COUNTING = WORK / "tree", WORK / "plain", WORK / "counting"
DISPLAY_TESTS = 10  # that run for one mutant at most
# The checked subscripts of the library stand in for the sanitizers, which are too slow here.
FLAGS = "-DNDEBUG -w -D_GLIBCXX_ASSERTIONS"
# A whole program of unit tests, or one test that needs the display. `lines` maps each source to
# {line: whether the test reaches it}; `seconds` are of the processor, since the machine may be busy.
Test = collections.namedtuple("Test", "name words folder display seconds lines")


def run(words, limit=None, **options):
    """Exit status (None after the time limit) and output. Whatever it started ends with it."""
    with tempfile.TemporaryFile() as output:
        process = subprocess.Popen([str(word) for word in words], stdin=subprocess.DEVNULL,
                                   stdout=output, stderr=subprocess.STDOUT, start_new_session=True,
                                   **options)
        try:
            status = process.wait(limit)
        except subprocess.TimeoutExpired:
            status = None
        finally:
            try:
                os.killpg(process.pid, signal.SIGKILL)
            except ProcessLookupError:
                pass
            process.wait()
        output.seek(0)
        return status, output.read().decode(errors="replace")


def need(words, **options):
    status, output = run(words, **options)
    if status != 0:
        raise RuntimeError(f"{output[-5000:]}\n{' '.join(map(str, words))} failed")
    return output


def read_records(path):
    return [json.loads(line) for line in path.read_text().splitlines()] if path.exists() else []


def append_record(path, record):
    with path.open("a") as file:
        file.write(json.dumps(record) + "\n")


def copy_tree():
    """Copies what git does not ignore to TREE. Returns a hash of all that the results depend on."""
    digest = hashlib.sha256(FLAGS.encode())
    listed = need(["git", "-C", ROOT, "ls-files", "-zco", "--exclude-standard"]).split("\0")
    for name in sorted(name for name in listed if (ROOT / name).is_file()):
        content, target = (ROOT / name).read_bytes(), TREE / name
        if name.split("/")[0] in BUILT:
            digest.update(name.encode() + content)
        if not target.is_file() or content != target.read_bytes():
            target.parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(ROOT / name, target)
    return digest.hexdigest()[:12]


def configure(build, flags, *options):
    launcher = ["-DCMAKE_CXX_COMPILER_LAUNCHER=ccache"] if shutil.which("ccache") else []
    need(["cmake", "-G", "Ninja", "-S", TREE, "-B", build, "-DCMAKE_BUILD_TYPE=Release",
          f"-DCMAKE_CXX_FLAGS_RELEASE={flags} {FLAGS}", *launcher, *options])


def make(*targets):
    """Whether the targets in PLAIN can be built."""
    return run(["ninja", "-C", PLAIN, *targets])[0] == 0


def run_test(test, build, limit, **variables):
    """Whether it passed, and the name of the test that failed."""
    scratch = WORK / "scratch"
    shutil.rmtree(scratch, ignore_errors=True)
    scratch.mkdir()
    environment = os.environ | {"HOME": str(scratch), "TMPDIR": str(scratch)} | variables
    status, output = run([word.replace("BUILD", str(build)) for word in test.words], limit,
                         cwd=test.folder.replace("BUILD", str(build)), env=environment)
    if test.display and run(["xprop", "-root", "_NET_SUPPORTING_WM_CHECK"], 20)[0] != 0:
        raise RuntimeError("the display has ended")
    failed = re.search(r"\[  FAILED  \] ([^\s,]+)", output)
    name = f"{test.name}: {failed[1]}" if failed and not test.display else test.name
    return status == 0, name if status is not None else f"{name} (out of time)"


def compiled_sources():
    """The product's files that this system compiles, by name, and the object made of each .cpp."""
    sources, objects = {}, {}
    for entry in json.loads((PLAIN / "compile_commands.json").read_text()):
        objects[os.path.relpath(entry["file"], TREE)] = re.search(r" -o (\S+)", entry["command"])[1]
    waiting = list(objects)
    while waiting:
        name = waiting.pop()
        if name not in sources and name.split("/")[0] in ROOMS and (TREE / name).is_file():
            sources[name] = Source(name, (TREE / name).read_text())
            waiting += sources[name].includes
    return sources, objects


def users(sources, name):
    """The file and the product's files that include it."""
    found = {name}
    while more := {other for other, source in sources.items()
                   if other not in found and not found.isdisjoint(source.includes)}:
        found |= more
    return found


def listed_tests():
    """What ctest would run, not measured yet. BUILD stands for the build folder."""
    found = {}
    for test in json.loads(need(["ctest", "--show-only=json-v1"], cwd=PLAIN))["tests"]:
        own = {entry["name"]: entry["value"] for entry in test["properties"]}
        words = [word.replace(str(PLAIN), "BUILD") for word in test["command"]]
        folder = own["WORKING_DIRECTORY"].replace(str(PLAIN), "BUILD")
        display, program = "RESOURCE_LOCK" in own, os.path.basename(words[0])
        if not display and words[1:2] and words[1].startswith("--gtest_filter="):
            words = [words[0], "--gtest_fail_fast"]
        name = f"{program}: {test['name']}" if display else program
        if not test["name"].startswith("Soak."):
            found[name] = Test(name, words, folder, display, 0, {})
    return list(found.values())


def measured(test):
    """The test with its time and the lines that it reaches. One that fails here judges nothing."""
    counts = WORK / "counts"
    for _ in range(2):
        shutil.rmtree(counts, ignore_errors=True)
        start = resource.getrusage(resource.RUSAGE_CHILDREN).ru_utime
        if run_test(test, COUNTING, 900, GCOV_PREFIX=str(counts))[0]:
            break
    else:
        print(f"{test.name} fails on the unbroken product and is left out", flush=True)
        return test
    seconds = resource.getrusage(resource.RUSAGE_CHILDREN).ru_utime - start
    lines = collections.defaultdict(collections.Counter)
    files = [file for room in ROOMS for file in
             (counts / COUNTING.relative_to("/") / room).rglob("*.gcda")]
    for file in files:
        notes = file.with_suffix(".gcno")
        notes.symlink_to("/" / notes.relative_to(counts))
    output = need(["gcov", "--json-format", "--stdout", "--relative-only", "--source-prefix", WORK,
                   *files], cwd=counts) if files else ""
    for report in output.splitlines():
        for source in json.loads(report)["files"] if report.startswith("{") else []:
            name = source["file"].partition("tree/")[2]
            if name.split("/")[0] in ROOMS:
                for line in source["lines"]:
                    lines[name][line["line_number"]] |= line["count"] > 0
    return test._replace(seconds=round(seconds, 2), lines=lines)


def measured_tests(state):
    """All tests with the lines that they reach; kept until the product or a test changes."""
    cache = WORK / f"tests-{state}.jsonl"
    known = {record[0]: Test(*record) for record in read_records(cache)}
    missing = [test for test in listed_tests() if test.name not in known]
    if missing:
        print(f"Finding the lines that {len(missing)} tests reach", flush=True)
        saver = WORK / "saver.o"
        source = pathlib.Path(__file__).with_name("save_counts.cpp")
        need(["g++", "-fno-exceptions", "-c", source, "-o", saver])
        configure(COUNTING, "-O0 --coverage", f"-DCMAKE_EXE_LINKER_FLAGS=--coverage {saver}")
        need(["ninja", "-C", COUNTING])
    for test in missing:
        known[test.name] = measured(test)
        append_record(cache, known[test.name])
    return list(known.values())


def reaching(tests, mutant, sources):
    """The tests that run the broken statement. If it is in no function (a table, a constant), the
    tests that run anything of the file or of a file that includes it."""
    statement = [str(line) for line in range(mutant.begin, mutant.line + 1)]
    if any(line in test.lines.get(mutant.file, {}) for test in tests for line in statement):
        return [test for test in tests
                if any(test.lines.get(mutant.file, {}).get(line) for line in statement)]
    files = users(sources, mutant.file)
    return [test for test in tests if any(any(test.lines.get(file, {}).values()) for file in files)]


def in_order(tests, mutant, noticed, before):
    """The tests in the order in which they run: the one that noticed this mutant `before`, unit tests
    (the fastest first), then DISPLAY_TESTS of the others: first those that have `noticed` most, and
    as drawn among equals, so that all are tried sooner or later."""
    before = before.split(" (")[0]
    ranked = sorted(tests, key=lambda test: (
        test.name != before and not before.startswith(test.name + ": "), test.display,
        -noticed[test.name] if test.display else 0,
        random.Random(mutant.key + test.name).random() if test.display else test.seconds))
    units = sum(not test.display for test in tests)
    return ranked[:units + DISPLAY_TESTS]
