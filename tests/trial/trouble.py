"""A deed that something gets in the way of: what must hold of what is told, what is stored, what stays on the form, and
of the next deed."""

import re

import deeds
from player import Outcome, state_of
from sitting import Sitting

# What a user reads of each kind of trouble.
WORDS = {
    "full": r"espacio en el disco|sitio en el disco",
    "broken": r"La conexión con la Base de Datos se perdió|errores de lectura|da errores|lectura o escritura|No se puede leer",
    "no-right": r"permiso|no permite el acceso|solo lectura|No se puede leer el fichero",
    "read-only": r"solo lectura",
    "unseen": r"\w",  # a look that the system cannot answer: whatever is told
    "moved": r"se ha movido, borrado o sustituido|no existe|No se puede leer",
    "refused": r"Fallo provocado",
    "lost": r"Se perdió la conexión|Fallo provocado",
}

def complaints(lines, undisturbed):
    """What was said that is not said otherwise."""
    expected = list(undisturbed)
    left = []
    for line in lines:
        if line in expected:
            expected.remove(line)
        else:
            left.append(line)
    return left


def told_words(deed, kind):
    return WORDS[kind] + ("|" + deed.told_otherwise if deed.told_otherwise else "")


def hold_told(player, deed, outcome, kind, what):
    """A deed that was not done is told to have failed, and why."""
    left = complaints(outcome.part(), player.reference(deed).lines)
    told = player.trial.hold(left, f"{what}: nothing is there, and nothing was told", outcome.told())
    if told:
        player.trial.hold(re.search(told_words(deed, kind), "\n".join(left)), f"{what}: the words do not say what it is",
                          "\n".join(left))


def hold_typed(player, deed, outcome, what):
    if deed.typed:
        before = outcome.part(deeds.BEFORE, deeds.MARK)
        player.trial.hold(outcome.part(deeds.DONE, deeds.TYPED_SHOWN) == before, f"{what}: what was typed is gone",
                          outcome.told())


def said(sitting):
    """What was said until now."""
    return Outcome(0, sitting.output, "", [])


def hold_next(player, deed, outcome, what):
    """The same deed, behind the trouble."""
    lines = outcome.part(deeds.AGAIN, deeds.END)
    failed = [line for line in lines if re.search(r"Error|Cancelada|rechaza|error number|No se ha", line)]
    player.trial.hold(outcome.reached(deeds.END) and not failed, f"{what}: the next deed does not work",
                      "\n".join(failed) + outcome.told())


def play(player, deed, kind, fault):
    trial = player.trial
    what = f"{deed.name}, {fault.kind} {fault.at}, {kind}"
    player.lay_out(deed)
    sitting = Sitting(player, fault, deeds.MARK)
    sitting.say(deed.until_done())
    done = False
    missed = False
    if sitting.hear(deeds.TYPED_SHOWN):
        so_far = said(sitting)
        done = player.hold_rows(deed, so_far, state_of(player.place), what, refused=True)
        missed = not player.is_acknowledged(deed, so_far)
        if missed:
            trial.note("deeds that failed")
            # Behind the rows a form may have closed: what was typed is stored.
            if not done:
                hold_typed(player, deed, so_far, what)
                hold_told(player, deed, so_far, kind, what)
        sitting.say(deed.once_more() if missed else "")
    sitting.say(deed.ending())
    outcome = sitting.end()
    trial.hold(outcome.status == 0, f"{what}: ended with status {outcome.status}", outcome.told())
    if missed and not done:
        hold_next(player, deed, outcome, what)
    expected = player.reference(deed).outcome.descriptors()
    trial.hold(outcome.status != 0 or outcome.descriptors() <= expected, f"{what}: descriptors stay open",
               f"{outcome.descriptors()}, expected {expected}")
    wrong = player.reopened()
    trial.hold(not wrong, f"{what}: the database does not open whole", wrong)
