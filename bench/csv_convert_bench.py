#!/usr/bin/python3
"""kivodt convert --csv 2 ANYDTDTE DATE9. on a four-column CSV, beside the same job in Python's csv
module with dateutil.

  csv_convert_bench.py KIVODT ROWS PEER_ROWS   runs both and prints rows/s and peak resident sizes
  csv_convert_bench.py generate ROWS           writes the CSV to standard output
  csv_convert_bench.py peer                    the Python job: standard input to standard output
"""
import csv
import os
import subprocess
import sys
import tempfile
import time

LAYOUTS = ("{y:04d}-{m:02d}-{d:02d}", "{m:02d}/{d:02d}/{y:04d}", "{d:02d}{mon}{y:04d}", "{d:02d}-{mon}-{y:04d}")
MONTHS = ("JAN", "FEB", "MAR", "APR", "MAY", "JUN", "JUL", "AUG", "SEP", "OCT", "NOV", "DEC")


def generate(rows, out):
    """id, a date written four ways, an amount, and a quoted note holding the delimiter."""
    out.write("id,when,amount,note\n")
    for row in range(rows):
        y, m, d = 1990 + row % 35, 1 + row % 12, 1 + row % 28
        when = LAYOUTS[row % len(LAYOUTS)].format(y=y, m=m, d=d, mon=MONTHS[m - 1])
        out.write(f'{row},{when},{row * 3 % 100000}.25,"note {row % 97}, checked"\n')


def peer(source, sink):
    from dateutil import parser
    reader = csv.reader(source)
    writer = csv.writer(sink, lineterminator="\n")
    writer.writerow(next(reader))
    for row in reader:
        row[1] = parser.parse(row[1]).strftime("%d%b%Y").upper()
        writer.writerow(row)


def measure(command, input_path):
    """Seconds and peak resident size (KiB) of command reading input_path."""
    with open(input_path, "rb") as source, open(os.devnull, "wb") as sink:
        start = time.monotonic()
        child = subprocess.Popen(command, stdin=source, stdout=sink)
        _, status, usage = os.wait4(child.pid, 0)
        seconds = time.monotonic() - start
    if os.waitstatus_to_exitcode(status) != 0:
        sys.exit(f"{command[0]} ended with status {os.waitstatus_to_exitcode(status)}")
    return seconds, usage.ru_maxrss


def compare(kivodt, rows, peer_rows):
    with tempfile.TemporaryDirectory() as work:
        results = []
        for name, count, command in (
            ("kivodt convert --csv 2 ANYDTDTE DATE9.", rows, [kivodt, "convert", "--csv", "2", "ANYDTDTE", "DATE9."]),
            ("python3 csv + dateutil", peer_rows, [sys.executable, os.path.abspath(__file__), "peer"]),
        ):
            path = os.path.join(work, "input.csv")
            with open(path, "w") as out:
                generate(count, out)
            size = os.path.getsize(path)
            seconds, peak = measure(command, path)
            os.remove(path)
            results.append((name, count, size, seconds, peak))
    print(f"| job | rows | input MB | seconds | rows/s | peak RSS MB | s for {rows} rows (scaled) |")
    print("|---|---|---|---|---|---|---|")
    for name, count, size, seconds, peak in results:
        print(f"| {name} | {count} | {size / 1e6:.1f} | {seconds:.2f} | {count / seconds:,.0f} | {peak / 1024:.1f} |"
              f" {seconds * rows / count:.1f} |")


def main(arguments):
    if arguments[:1] == ["generate"] and len(arguments) == 2:
        generate(int(float(arguments[1])), sys.stdout)
    elif arguments == ["peer"]:
        peer(sys.stdin, sys.stdout)
    elif len(arguments) == 3:
        compare(arguments[0], int(float(arguments[1])), int(float(arguments[2])))
    else:
        sys.exit(__doc__)


if __name__ == "__main__":
    main(sys.argv[1:])
