"""Which broken rules does no test notice?

Breaks one rule at a time in a copy of the product, builds it and runs the tests that reach the
broken line. Prints each break that every test passes (file, line, what was done, the line before and
after), then a table of the rooms. The tree itself is never changed: all is in build-mutate/.

What is broken: a sign (+ and -), a comparison (its edge, or == and !=), a constant, an index (off by
one), a statement (dropped), two arguments (swapped), a condition (negated). Comments, texts,
preprocessor lines, static_assert, what only writes to the log and what this system does not compile
stay as they are. What does not compile, or compiles to the same object file, is replaced by another.

The sample depends on the seed and the product alone. It is spread over the rooms by their lines of
code. Unchanged lines keep their mutants when others change. Unit tests run first, then tests that
need a display, until one fails. Of these at most ten run, first those that have noticed most in this
room; the count of tests says so, as in "12 of 40 tests". A test that needs a display has to fail twice, since a busy machine can fail
it once. The soak test, which draws at random, is left out. A time-out counts as noticed. A mutant
that no test reaches counts as survived ("not reached").

It can be interrupted: the same command continues. After a change of the tests or of the product,
each mutant is judged again; the test that noticed it before runs first, so this is much faster. The
exit status is 0 whatever survives. A broken program may write anywhere: run this where nothing can
be lost."""

import argparse
import collections
import fcntl
import os
import random
import resource
import signal
import sys
import time

from suite import (PLAIN, ROOMS, TREE, WORK, append_record, compiled_sources, configure, copy_tree,
                   in_order, make, measured_tests, need, reaching, read_records, run_test, users)

FEW = 5  # mutants that even the smallest room gets
RESULTS = WORK / "results.jsonl"


def draw(sources, arguments):
    """Of each room the mutants in the order in which they are tried, and how many are wanted."""
    queues, sizes = {}, {}
    for room in ROOMS:
        own = [source for name, source in sources.items() if name.startswith(room + "/")
               and name.startswith(tuple(arguments.only))]
        places, ranked = collections.Counter(), []
        for mutant in sorted((mutant for source in own for mutant in source.mutants()),
                             key=lambda mutant: random.Random(f"{arguments.seed} {mutant.key}").random()):
            ranked.append((places[mutant.file, mutant.line], len(ranked), mutant))
            places[mutant.file, mutant.line] += 1
        # The first of each line come before the second of any.
        queues[room] = collections.deque(mutant for _, _, mutant in sorted(ranked))
        sizes[room] = sum(len(source.code_lines) for source in own)
    few = min(FEW, arguments.count // len(ROOMS))
    wanted = {room: max(few, round(arguments.count * size / (sum(sizes.values()) or 1)))
              for room, size in sizes.items()}
    wanted |= {room: 0 for room in ROOMS if not queues[room]}
    largest = max(wanted, key=wanted.get)
    wanted[largest] = max(0, wanted[largest] + arguments.count - sum(wanted.values()))
    return queues, wanted


def attempt(mutant, sources, objects, choose):
    """What becomes of a mutant: "noticed", "survived" or "no mutant", and by what."""
    text, target = sources[mutant.file].text, TREE / mutant.file
    made = next(objects[user] for user in [mutant.file, *sorted(users(sources, mutant.file))]
                if user in objects)
    unbroken = (PLAIN / made).read_bytes() if make(made) else b""
    try:
        target.write_text(text[:mutant.start] + mutant.after + text[mutant.end:])
        if not make(made):
            return "no mutant", "does not compile"
        if mutant.file in objects and (PLAIN / made).read_bytes() == unbroken:
            return "no mutant", "same object file"
        reached, tests = choose(mutant)
        for test in tests:
            if not make(os.path.basename(test.words[0])):
                return "no mutant", "does not compile"
            limit = max(60 if test.display else 20, 20 * test.seconds)
            for _ in range(2 if test.display else 1):
                passed, name = run_test(test, PLAIN, limit)
                if passed:
                    break
            else:
                return "noticed", name
        number = f"{len(tests)} of {reached}" if len(tests) < reached else f"{reached}"
        return "survived", f"{number} tests" if reached else "not reached"
    finally:
        target.write_text(text)


def try_all(sources, objects, state, arguments):
    """Tries mutants until each room has its share: {mutant: (result, by what)}."""
    queues, wanted = draw(sources, arguments)
    print("Building the product and its tests", flush=True)
    need(["ninja", "-C", PLAIN])
    tests = measured_tests(state)
    known, before, noticed = {}, {}, collections.Counter()
    for when, key, result, by, _ in read_records(RESULTS):
        if when == state:
            known[key] = result, by
        before[key] = by

    def choose(mutant):
        reached = reaching(tests, mutant, sources)
        own = collections.Counter({test: n for (room, test), n in noticed.items()
                                   if room == mutant.file.split("/")[0]})
        return len(reached), in_order(reached, mutant, own, before.get(mutant.key, ""))

    outcomes, done = {}, collections.Counter()
    while waiting := [room for room in queues if queues[room] and done[room] < wanted[room]]:
        # All rooms advance together, so that a part of the sample is a sample too.
        room = min(waiting, key=lambda room: done[room] / wanted[room])
        mutant, start = queues[room].popleft(), time.monotonic()
        if mutant.key not in known:
            known[mutant.key] = attempt(mutant, sources, objects, choose)
            record = [state, mutant.key, *known[mutant.key], round(time.monotonic() - start)]
            append_record(RESULTS, record)
        result, by = known[mutant.key]
        if result == "no mutant":
            continue
        noticed[room, by.split(" (")[0]] += result == "noticed"
        done[room] += 1
        outcomes[mutant] = result, by
        print(f"{len(outcomes):4} of {arguments.count}  {result}  {mutant.file}:{mutant.line} "
              f"{mutant.operator} ({by}; {time.monotonic() - start:.0f} s)", flush=True)
    return outcomes


def report(outcomes, sources):
    """Prints each survivor with its lines before and after, then the table of the rooms."""
    print("\nSurvived:")
    counts = collections.Counter()
    for mutant, (result, by) in sorted(outcomes.items()):
        counts.update([(mutant.file.split("/")[0], result), ("all", result)])
        if result == "survived":
            text = sources[mutant.file].text
            first, last = text.rfind("\n", 0, mutant.start) + 1, text.find("\n", mutant.end)
            broken = text[first:mutant.start] + mutant.after + text[mutant.end:last]
            print(f"{mutant.file}:{mutant.line}: {mutant.operator} ({by})",
                  *(f"  - {line.strip()}" for line in text[first:last].splitlines()),
                  *(f"  + {line.strip()}" for line in broken.splitlines()), sep="\n")
    print(f"\n{'room':10}{'mutants':>10}{'noticed':>10}{'survived':>10}{'score':>8}")
    for room in ROOMS + ("all",):
        noticed, survived = counts[room, "noticed"], counts[room, "survived"]
        if noticed + survived:
            print(f"{room:10}{noticed + survived:10}{noticed:10}{survived:10}"
                  f"{noticed / (noticed + survived):8.0%}")


def main():
    parser = argparse.ArgumentParser(prog="scripts/mutate", description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--seed", type=int, default=1, help="which sample (1)")
    parser.add_argument("--count", type=int, default=300, help="mutants in it (300)")
    parser.add_argument("--only", action="append",
                        help="of this room or file, as ui or ui/menu.cpp; repeatable")
    arguments = parser.parse_args()
    arguments.only = arguments.only or [""]
    signal.signal(signal.SIGTERM, signal.default_int_handler)
    # What a broken program may take: memory, disk, and no core files.
    resource.setrlimit(resource.RLIMIT_AS, (8 << 30, 8 << 30))
    resource.setrlimit(resource.RLIMIT_FSIZE, (1 << 30, 1 << 30))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))

    WORK.mkdir(exist_ok=True)
    lock = open(WORK / "lock", "w")
    try:
        fcntl.flock(lock, fcntl.LOCK_EX | fcntl.LOCK_NB)
    except BlockingIOError:
        sys.exit(f"error: another run works in {WORK}")
    os.environ |= {"CCACHE_BASEDIR": str(WORK)}
    state = copy_tree()
    configure(PLAIN, "-O1")
    sources, objects = compiled_sources()
    report(try_all(sources, objects, state, arguments), sources)


if __name__ == "__main__":
    try:
        main()
    except KeyboardInterrupt:
        sys.exit("interrupted; the same command continues from here")
    except RuntimeError as error:
        sys.exit(f"error: {error}")
