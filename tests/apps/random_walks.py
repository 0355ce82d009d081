#!/usr/bin/env python3
"""Walks over the main form as no user would: random deeds, texts that nobody foresaw, answers as they come. Whatever is
entered, the program goes on: no crash, no endless chain of field, event, field.

    random_walks.py DRIVER [WALKS [DEEDS [FIRST]]]
"""

import random
import subprocess
import sys
import tempfile

BOXES = (
    ["Text1(%d)" % i for i in range(26)]
    + ["Text4(%d)" % i for i in (*range(8), 50, 51, 52, 53)]
    + ["txtPesu(%d)" % i for i in (*range(18), *range(20, 26), *range(50, 58))]
    + ["txtObservaciones", "txtExtra", "txtCPro", "txtModulo"]
)
LISTS = ["cboMatDisco", "cboMatCubo", "cboMatCre", "cboDobles", "cboFiltroHistorico"]
TEXTS = [
    "", "0", "1", "3", "12,7", "17", "38", "7,75", "abc", "-5", "1e308", "-1e300", "1.234,5", "120", "98", "105",
    "0,01", "'; drop table DPI --", "ñ€😀", "1001", "99999", "60,5", "1e15", "(5)", "  7 ", "200",
]
SECONDS = 120


def deed(rng):
    kinds = [
        (60, lambda: 'try set %s "%s"' % (rng.choice(BOXES), rng.choice(TEXTS))),
        (8, lambda: "try choose cboTipoPre %d" % rng.randrange(15)),
        (4, lambda: "try choose %s %d" % (rng.choice(LISTS), rng.randrange(3))),
        (3, lambda: "try check chkFormulas " + rng.choice(["on", "off"])),
        (5, lambda: "leave"),
        (6, lambda: "key " + rng.choice(["F3", "F5", "ENTER", "DECIMAL", "F8"])),
        (3, lambda: "try press " + rng.choice(["cmdCambios", "XPGrabar", "XPImprime"])),
        (3, lambda: 'try type %s "%s"' % (rng.choice(BOXES), rng.choice(TEXTS))),
        (4, lambda: "try focus " + rng.choice(BOXES)),
    ]
    return rng.choices([make for _, make in kinds], [weight for weight, _ in kinds])[0]()


def walk(seed, deeds):
    rng = random.Random(seed)
    lines = []
    for _ in range(deeds):
        lines.append("answer " + rng.choice(["cancel", "cancel", "no", "yes"]))
        lines.append("pick " + rng.choice(["none", "0", "3"]))
    return lines + ["open propuestas"] + [deed(rng) for _ in range(deeds)] + ["close"]


def main():
    driver = sys.argv[1]
    walks, deeds, first = (int(text) for text in sys.argv[2:5] + ["6", "150", "1"][len(sys.argv) - 2:])
    failed = 0
    for seed in range(first, first + walks):
        with tempfile.NamedTemporaryFile("w", suffix=".drive", encoding="utf-8") as script:
            script.write("\n".join(walk(seed, deeds)) + "\n")
            script.flush()
            try:
                ended = subprocess.run([driver, script.name], capture_output=True, timeout=SECONDS, check=False)
            except subprocess.TimeoutExpired:
                print("walk %d did not end in %d seconds" % (seed, SECONDS))
                failed += 1
                continue
        if ended.returncode != 0:
            print("walk %d ended with status %d: %s" % (seed, ended.returncode, ended.stderr.decode()[-400:]))
            failed += 1
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
