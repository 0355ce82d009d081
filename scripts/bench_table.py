#!/usr/bin/env python3
"""bench_table.py PROGRAMS KEPT [SIZE] [--keep]: runs the measures and prints one table, beside the one kept."""

import argparse
import datetime
import json
import os
import subprocess
import sys
import tempfile

from first_window import fastest_tenth, starts_in_turns

COLUMNS = ("size", "operation", "ours_us", "bare_us", "ratio", "memory_MiB", "date")
ON_THE_DATABASE = ("bench", "history_bench", "tracking_bench", "finding_bench", "acceptance_bench")
ON_THEIR_OWN = ("export_bench", "clients_bench")
# Beside a list that another process saves into: its own figures, which tracking_bench itself holds to their bounds.
LEFT_OUT = "-.*BesideForeignSaves.*"
# Up to so many proposals a list is walked to its end: beyond, that alone takes longer than all other measures.
MOST_WALKED = 2_000_000


def run(program, surroundings, seconds, left_out):
    """The program's measures, and the most memory that it has had, in MiB."""
    with tempfile.NamedTemporaryFile(suffix=".json") as answer:
        command = [program, f"--benchmark_min_time={seconds}", f"--benchmark_filter={left_out}",
                   "--benchmark_out_format=json", f"--benchmark_out={answer.name}"]
        child = subprocess.Popen(command, env=dict(os.environ, **surroundings), stdout=subprocess.DEVNULL,
                                 stderr=subprocess.DEVNULL)
        _, status, used = os.wait4(child.pid, 0)
        if status != 0:
            print(f"{os.path.basename(program)} ended with {status}", file=sys.stderr)
            return [], 0
        return json.load(answer)["benchmarks"], used.ru_maxrss / 1024


def row_of(size, program, measure, memory):
    """One line of the table. Clients are counted by the second, an export's memory is what it has grown by."""
    name = program.removesuffix("bench").rstrip("_") + "/" + measure["name"].split("/")[0]
    if measure["name"].startswith("ExportOfALongList"):
        name = "export/" + measure["name"].split("/")[1]
    ours = measure.get("ours_us", measure["real_time"] * {"ns": 1e-3, "us": 1, "ms": 1e3}[measure["time_unit"]])
    bare = measure.get("bare_us", ours / measure["ratio"] if measure.get("ratio") else None)
    if "ours_per_s" in measure:
        ours, bare = 1e6 / measure["ours_per_s"], 1e6 / measure["bare_per_s"]
        name += f" ({measure['refused']:.0f} refused)"
    if "size_kB" in measure:
        name = f"export/papers ({measure['size_kB']:.0f} kB)"
    memory = measure.get("grown_kB", memory * 1024) / 1024
    return dict(size=size, operation=name.lstrip("/"), ours_us=ours, bare_us=bare, ratio=ours / bare if bare else None,
                memory_MiB=memory)


def measured(programs, size, names, surroundings, seconds):
    rows = []
    left_out = LEFT_OUT if size == "any" or size <= MOST_WALKED else LEFT_OUT + "|walkToTheEnd"
    for name in names:
        measures, memory = run(os.path.join(programs, "velmora_" + name), surroundings, seconds, left_out)
        rows += [row_of(size, name, measure, memory) for measure in measures]
    return rows


def start_rows(programs):
    """The desktop with its window of the day beside an empty window, and beside one that shows a line of text."""
    bare = [os.path.join(programs, "velmora_bare_window")]
    with tempfile.TemporaryDirectory() as folder:
        desktop = [os.path.join(programs, "velmora"), "--db", os.path.join(folder, "taller.db")]
        subprocess.run([os.path.join(programs, "velmora_bench_fill"), desktop[-1], "1000"], check=True)
        starts = starts_in_turns([desktop, bare, bare + ["VELMORA"]])
    ours, empty, written = (fastest_tenth([start.elapsed for start in program]) * 1e6 for program in starts)
    return [dict(size="any", operation=operation, ours_us=ours, bare_us=bare, ratio=ours / bare, memory_MiB=0)
            for operation, bare in (("start/firstWindow", empty), ("start/firstWindowBesideALine", written))]


def read_kept(path):
    if not os.path.exists(path):
        return {}
    with open(path, encoding="utf-8") as file:
        lines = [line.rstrip("\n").split("\t") for line in file if line.strip()]
    return {(line[0], line[1]): dict(zip(COLUMNS, line)) for line in lines[1:]}


def write_kept(path, kept):
    with open(path, "w", encoding="utf-8") as file:
        for line in [COLUMNS] + [[row[column] for column in COLUMNS] for _, row in sorted(kept.items())]:
            file.write("\t".join(line) + "\n")


def as_text(row, date):
    def number(value, digits):
        return "" if value is None else f"{value:.{digits}f}"

    return dict(size=str(row["size"]), operation=row["operation"], ours_us=number(row["ours_us"], 1),
                bare_us=number(row["bare_us"], 1), ratio=number(row["ratio"], 2),
                memory_MiB=number(row["memory_MiB"], 0), date=date)


def print_table(rows, kept):
    print(f"{'size':>9}  {'operation':34}{'ours µs':>12}{'bare µs':>12}{'ratio':>8}{'MiB':>6}{'kept µs':>12}")
    for row in rows:
        before = kept.get((row["size"], row["operation"]), {}).get("ours_us", "")
        print(f"{row['size']:>9}  {row['operation']:34}{row['ours_us']:>12}{row['bare_us']:>12}{row['ratio']:>8}"
              f"{row['memory_MiB']:>6}{before:>12}")


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("programs")
    parser.add_argument("kept")
    parser.add_argument("size", nargs="?", type=int, default=1310720)
    parser.add_argument("--keep", action="store_true", help="write the table into KEPT")
    parser.add_argument("--database", help="a database of that size that is there already; it is changed")
    parser.add_argument("--database-only", action="store_true", help="not what is the same at every size")
    parser.add_argument("--seconds", default="0.5", help="for each measure")
    told = parser.parse_args()

    with tempfile.TemporaryDirectory() as folder:
        database = told.database or os.path.join(folder, "taller.db")
        if not told.database:
            subprocess.run([os.path.join(told.programs, "velmora_bench_fill"), database, str(told.size)], check=True)
        rows = measured(told.programs, told.size, ON_THE_DATABASE, {"VELMORA_BENCH_DATABASE": database}, told.seconds)
    if not told.database_only:
        rows += measured(told.programs, "any", ON_THEIR_OWN, {"QT_QPA_PLATFORM": "offscreen"}, told.seconds)
        if os.environ.get("DISPLAY"):
            rows += start_rows(told.programs)

    date = datetime.date.today().isoformat()
    kept = read_kept(told.kept)
    texts = [as_text(row, date) for row in rows]
    print_table(texts, kept)
    if told.keep:
        write_kept(told.kept, kept | {(row["size"], row["operation"]): row for row in texts})


if __name__ == "__main__":
    main()
