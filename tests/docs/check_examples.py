"""Runs every example of the README and docs/ and compares what it prints with the text shown.

A shell example is a line "$ COMMAND" in a fenced code block; the lines after it, up to the next "$ "
line or the end of the block, are what COMMAND prints on standard output and standard error together.
The examples of one file run in order, in one scratch directory, with the kivodt given first on PATH
and none of the reference host's environment variables set. With --python, the ">>> " examples of the
fenced python blocks run too, as doctests, each file's in one namespace.

    check_examples.py [--python] KIVODT FILE...
"""

import doctest
import os
import pathlib
import subprocess
import sys
import tempfile


def examples(path):
    """(line number, command, expected output) for each example of a Markdown file."""
    found, block, current = [], False, None
    for number, line in enumerate(pathlib.Path(path).read_text(encoding="utf-8").split("\n"), 1):
        if line.startswith("```"):
            if current:
                found.append(current)
            block, current = not block, None
        elif block and line.startswith("$ "):
            if current:
                found.append(current)
            current = (number, line[2:], [])
        elif block and current:
            current[2].append(line)
    return [(number, command, "\n".join(lines)) for number, command, lines in found]


def python_blocks(path):
    """The fenced python blocks of a Markdown file, with the line each starts on."""
    blocks, current = [], None
    for number, line in enumerate(pathlib.Path(path).read_text(encoding="utf-8").split("\n"), 1):
        if line.startswith("```"):
            if current is not None:
                blocks.append(current)
                current = None
            elif line.strip() == "```python":
                current = (number, [])
        elif current is not None:
            current[1].append(line)
    return [(number, "\n".join(lines)) for number, lines in blocks]


def run_doctests(path):
    """(examples, failures) of the python blocks of one file, all in one namespace."""
    runner = doctest.DocTestRunner(optionflags=doctest.ELLIPSIS)
    namespace = {}
    for number, text in python_blocks(path):
        test = doctest.DocTestParser().get_doctest(text, namespace, f"{path}:{number}", path, number)
        runner.run(test, clear_globs=False)
        namespace.update(test.globs)  # a doctest runs on a copy of the names it is given
    return runner.tries, runner.failures


def main():
    python = sys.argv[1] == "--python"
    kivodt, files = sys.argv[1 + python], sys.argv[2 + python:]
    environment = {key: value for key, value in os.environ.items() if not key.startswith("KIVO_")}
    environment["PATH"] = os.path.dirname(os.path.abspath(kivodt)) + os.pathsep + environment.get("PATH", "")
    failures = ran = 0
    for path in files:
        with tempfile.TemporaryDirectory() as scratch:
            for number, command, expected in examples(path):
                ran += 1
                result = subprocess.run(["sh", "-c", command], cwd=scratch, env=environment,
                                        stdout=subprocess.PIPE, stderr=subprocess.STDOUT, encoding="utf-8",
                                        errors="replace")
                got = result.stdout.removesuffix("\n")
                if got != expected:
                    failures += 1
                    print(f"FAIL {path}:{number}: $ {command}\n--- got\n{got}\n--- shown\n{expected}")
        if python:
            tries, failed = run_doctests(path)
            ran, failures = ran + tries, failures + failed
    print(f"{ran - failures} of {ran} examples print what they show")
    sys.exit(1 if failures or not ran else 0)


if __name__ == "__main__":
    main()
