#!/usr/bin/env python3
"""Seeded mutation sampler: how many small faults in the program's logic do the tests catch?

It finds the mutation sites of the areas' .cpp files (comparisons, integer constants, whole-line
calls, boolean results and conditions), ranks them by a hash of the seed and of the site's own text,
and takes the first N of each area that still compile. Each mutant is applied alone, the area's test
programs are rebuilt and run, and the file is restored. A site's rank depends only on its file, its
line's text and the mutation, so an unrelated edit elsewhere does not change which sites are drawn.

Run through scripts/mutate.sh, which builds the program and prepares Wine and the display.
"""
import argparse
import hashlib
import os
import re
import signal
import subprocess
import sys
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent

# Which test labels (tests/<label>/) exercise each program area.
AREA_TESTS = {
    "settings": ["settings"],
    "files": ["files"],
    "images": ["images"],
    "support": ["strings", "ui", "settings"],
    "pages": ["pages"],
    "dialogs": ["dialogs"],
    "shell": ["ui"],
    "platform": ["platform"],
}

COMPARISON_FLIPS = {"==": "!=", "!=": "==", "<": ">=", ">=": "<", ">": "<=", "<=": ">"}
COMPARISON = re.compile(r"(?<=\s)(==|!=|<=|>=|<|>)(?=\s)")
NUMBER = re.compile(r"(?<![\w.])(0x[0-9A-Fa-f]+|\d+)(?![\w.])")
CALL_STATEMENT = re.compile(r"^(\s*)((?:[A-Za-z_]\w*(?:::|\.|->))*[A-Za-z_]\w*\(.*\);)\s*$")
NOT_CALLS = ("return", "if", "while", "for", "switch", "case", "delete", "throw", "else", "do")
BOOLEAN_RETURN = re.compile(r"\breturn (true|false|0|1);")
CONDITION = re.compile(r"\b(if|while) \(")
# Pixel sizes and colours given to these are layout and look, not logic.
LAYOUT_CALL = re.compile(r"\b(ScaleForDisplayY?|RGB)\([^()]*$")
LOGIC_HINT = re.compile(r"\b(if|while|for|return|case)\b|[-+*/%&|^]=?|[<>=!]=|\?|\(")


def blank_literals_and_comments(line, in_block):
    """The line with comments, strings and character literals blanked (same length), and whether
    a block comment is still open at its end."""
    out = []
    i = 0
    n = len(line)
    while i < n:
        if in_block:
            end = line.find("*/", i)
            if end < 0:
                out.append(" " * (n - i))
                return "".join(out), True
            out.append(" " * (end + 2 - i))
            i = end + 2
            in_block = False
            continue
        c = line[i]
        if line.startswith("//", i):
            out.append(" " * (n - i))
            break
        if line.startswith("/*", i):
            out.append("  ")
            i += 2
            in_block = True
            continue
        if c in "\"'":
            j = i + 1
            while j < n and line[j] != c:
                j += 2 if line[j] == "\\" else 1
            j = min(j + 1, n)
            out.append(c + "_" * (j - i - 2) + c if j - i >= 2 else " " * (j - i))
            i = j
            continue
        out.append(c)
        i += 1
    return "".join(out), in_block


def find_sites(path):
    """Every mutation site of one source file: (line index, column, old text, new text, kind)."""
    lines = path.read_text(encoding="utf-8").split("\n")
    sites = []
    in_block = False
    in_table = False
    for index, raw in enumerate(lines):
        code, in_block = blank_literals_and_comments(raw, in_block)
        stripped = code.strip()
        if not stripped or stripped.startswith("#") or stripped.startswith("static_assert"):
            continue
        # Brace-initialised tables are data, not logic.
        if re.search(r"(=|\[\])\s*\{\s*$", code):
            in_table = True
            continue
        if in_table:
            if stripped.startswith("};"):
                in_table = False
            continue
        for m in COMPARISON.finditer(code):
            sites.append((index, m.start(), m.group(1), COMPARISON_FLIPS[m.group(1)], "comparison"))
        if LOGIC_HINT.search(code) and "[" not in code.split("=")[0] and not stripped.startswith("case"):
            for m in NUMBER.finditer(code):
                if LAYOUT_CALL.search(code[:m.start()]):
                    continue
                old = m.group(1)
                value = int(old, 16) if old.startswith("0x") else int(old)
                new = str(value + 1) if value == 0 else str(value - 1)
                sites.append((index, m.start(), old, new, "constant"))
        call = CALL_STATEMENT.match(code)
        callee = call.group(2).split("(")[0] if call else ""
        if call and callee.split("::")[-1] not in NOT_CALLS and "=" not in callee:
            sites.append((index, call.start(2), raw[call.start(2):call.end(2)], "(void)0;", "call removed"))
        for m in BOOLEAN_RETURN.finditer(code):
            flipped = {"true": "false", "false": "true", "0": "1", "1": "0"}[m.group(1)]
            sites.append((index, m.start(1), m.group(1), flipped, "result inverted"))
        for m in CONDITION.finditer(code):
            sites.append((index, m.end(), "", "!", "condition inverted"))
    return lines, sites


def rank(seed, relative, line_text, site):
    key = f"{seed}|{relative}|{line_text.strip()}|{site[1]}|{site[2]}|{site[4]}"
    return hashlib.sha256(key.encode()).hexdigest()


def apply(lines, site):
    index, column, old, new, kind = site
    line = lines[index]
    if kind == "condition inverted":
        # "if (cond)" becomes "if (!(cond))": find the parenthesis that closes the condition.
        depth, end = 1, column
        while end < len(line) and depth:
            depth += {"(": 1, ")": -1}.get(line[end], 0)
            end += 1
        if depth:
            return None
        mutated = line[:column] + "!(" + line[column:end - 1] + ")" + line[end - 1:]
    else:
        if line[column:column + len(old)] != old:
            return None
        mutated = line[:column] + new + line[column + len(old):]
    copy = list(lines)
    copy[index] = mutated
    return copy


def test_targets(labels):
    targets = []
    for label in labels:
        for test in sorted((ROOT / "tests" / label).glob("*_test.cpp")):
            targets.append(f"{label}_{test.name[:-len('.cpp')]}")
    return targets


def run(cmd, timeout, log):
    try:
        result = subprocess.run(cmd, stdout=log, stderr=subprocess.STDOUT, timeout=timeout)
        return result.returncode
    except subprocess.TimeoutExpired:
        return "timeout"


def build_and_test(build, labels, timeout, log):
    """0 when the labels' test programs build and pass, else what failed."""
    built = run(["cmake", "--build", str(build), "--target", *test_targets(labels), "--", "--no-print-directory"],
                900, log)
    if built != 0:
        return "build"
    label_regex = "^(" + "|".join(labels) + ")$"
    return run(["ctest", "--test-dir", str(build), "-L", label_regex, "--stop-on-failure", "--timeout", str(timeout)],
               timeout * 4, log)


def area_passes(build, labels, timeout, log):
    print(f"\n### unmutated: {' '.join(labels)}", file=log, flush=True)
    return build_and_test(build, labels, timeout, log) == 0


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--seed", type=int, default=19)
    parser.add_argument("--count", type=int, default=8, help="mutants per area")
    parser.add_argument("--areas", default="settings,files,images,support,pages")
    parser.add_argument("--build", default=os.environ.get("QL_BUILD", str(ROOT / "build")))
    parser.add_argument("--list", action="store_true", help="only list the drawn sites")
    parser.add_argument("--timeout", type=int, default=300, help="seconds for one mutant's tests")
    args = parser.parse_args()
    # A stopped run still restores the file it mutated (the finally below).
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(1))

    build = Path(args.build)
    log = open(build / "mutants.log", "w") if not args.list else None
    totals = {}
    retried_kills = 0
    for area in args.areas.split(","):
        labels = AREA_TESTS[area]
        ranked = []
        for path in sorted((ROOT / "src" / area).glob("*.cpp")):
            relative = path.relative_to(ROOT).as_posix()
            lines, sites = find_sites(path)
            for site in sites:
                ranked.append((rank(args.seed, relative, lines[site[0]], site), path, relative, site))
        ranked.sort(key=lambda item: item[0])
        killed = tried = 0
        if not args.list and not area_passes(build, labels, args.timeout, log):
            print(f"area {area}: its tests fail or do not build without any mutant; not sampled", flush=True)
            continue
        for _, path, relative, site in ranked:
            if tried == args.count:
                break
            original = path.read_text(encoding="utf-8")
            lines = original.split("\n")
            mutated = apply(lines, site)
            if mutated is None:
                continue
            where = f"{relative}:{site[0] + 1}"
            change = f"{lines[site[0]].strip()}  =>  {mutated[site[0]].strip()}"
            if args.list:
                tried += 1
                print(f"{area:9} {site[4]:18} {where}: {change}")
                continue
            started = time.time()
            try:
                path.write_text("\n".join(mutated), encoding="utf-8")
                print(f"\n### {where} {site[4]}: {change}", file=log, flush=True)
                outcome = build_and_test(build, labels, args.timeout, log)
                if outcome == "build":
                    print(f"  stillborn  {where}  {site[4]}", flush=True)
                    continue
                tried += 1
                second_run = ""
                if outcome == 0:
                    # A survivor is run once more: on a loaded machine a run has been seen to pass
                    # that fails when repeated.
                    print("### again", file=log, flush=True)
                    outcome = build_and_test(build, labels, args.timeout, log)
                    retried_kills += outcome != 0
                    second_run = " (second run)" if outcome != 0 else ""
            finally:
                path.write_text(original, encoding="utf-8")
            verdict = "survived" if outcome == 0 else "killed" + second_run
            killed += outcome != 0
            print(f"{verdict:9} {area:9} {site[4]:18} {where}: {change}  ({time.time() - started:.0f} s)",
                  flush=True)
        totals[area] = (killed, tried)
    if not args.list:
        # Rebuild what was built from mutated sources, so the tree is left as it was.
        rebuilt = [target for area in totals for target in test_targets(AREA_TESTS[area])]
        run(["cmake", "--build", str(build), "--target", *dict.fromkeys(rebuilt), "--", "--no-print-directory"], 1800,
            log)
        all_killed = sum(k for k, _ in totals.values())
        all_tried = sum(t for _, t in totals.values())
        for area, (k, t) in totals.items():
            print(f"score {area:9} {k}/{t}")
        print(f"score total     {all_killed}/{all_tried} (seed {args.seed}; "
              f"{retried_kills} of them killed only on the second run)")
    return 0


if __name__ == "__main__":
    sys.exit(main())
