#!/usr/bin/env python3
"""Random walks over the main form and, every third time, over the tracking form: random actions, unexpected texts,
random answers. Whatever is entered, the program must continue: no crash, no endless chain of change events.

    random_walks.py DRIVER [WALKS [ACTIONS [FIRST]]]
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


def action(rng):
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


CRITERIA = ["txtCriterio(%d)" % i for i in range(6)]
TRACKING_BOXES = ["Text1(%d)" % i for i in (0, 1, 2, 3, 7, 8)] + ["txtPesu(%d)" % i for i in range(13)]
CRITERION_TEXTS = [
    "", "", "1", "300", "1001", "1002", "010126", "31122026", "01/01/26", "99999999999", "abc", "-", "' or 1=1",
]


# Closes a form that may have opened over the list; if there was none, this closes the list, so it is opened again.
BACK = "\nkey ESC\nopen seguimiento"


def tracking_action(rng):
    kinds = [
        (10, lambda: 'try set %s "%s"' % (rng.choice(CRITERIA), rng.choice(CRITERION_TEXTS))),
        (25, lambda: 'try set %s ""' % rng.choice(CRITERIA)),
        (10, lambda: 'try set %s "%s"' % (rng.choice(TRACKING_BOXES), rng.choice(TEXTS))),
        (8, lambda: 'try type %s "%s"' % (rng.choice(CRITERIA + TRACKING_BOXES), rng.choice(TEXTS))),
        (6, lambda: "try choose cboTipoPre %d" % rng.choice([0, 0, 0, *range(16)])),
        (6, lambda: "try choose cboFiltroHistorico %d" % rng.randrange(3)),
        (3, lambda: "try check chkAcopla " + rng.choice(["on", "off"])),
        (20, lambda: "try press " + rng.choice(["cmdfiltro", "cmdfiltro", "XPButton4"])),
        (12, lambda: "try row dbgDPI %d" % rng.randrange(40)),
        (4, lambda: "try cell dbgDPI %d" % rng.choice([1, 4]) + BACK),
        (4, lambda: "try gridkey dbgDPI " + rng.choice(["F8", "F9"]) + BACK),
        (2, lambda: "try press XPButton2" + BACK),
        (3, lambda: "try press " + rng.choice(["XPButton1", "cmdExcel"])),
        (8, lambda: "key " + rng.choice(["ENTER", "DECIMAL", "TAB"])),
        (4, lambda: "leave"),
    ]
    return rng.choices([make for _, make in kinds], [weight for weight, _ in kinds])[0]()


def walk(seed, actions):
    rng = random.Random(seed)
    # What the tracking form asks has no Cancel.
    answers = ["no", "yes"] if seed % 3 == 0 else ["cancel", "cancel", "no", "yes"]
    lines = []
    for _ in range(actions):
        lines.append("answer " + rng.choice(answers))
        lines.append("pick " + rng.choice(["none", "0", "3"]))
    if seed % 3 == 0:
        return lines + ["open seguimiento"] + [tracking_action(rng) for _ in range(actions)] + ["close"]
    return lines + ["open propuestas"] + [action(rng) for _ in range(actions)] + ["close"]


def main():
    driver = sys.argv[1]
    walks, actions, first = (int(text) for text in sys.argv[2:5] + ["6", "150", "1"][len(sys.argv) - 2:])
    failed = 0
    for seed in range(first, first + walks):
        with tempfile.NamedTemporaryFile("w", suffix=".drive", encoding="utf-8") as script:
            script.write("\n".join(walk(seed, actions)) + "\n")
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
