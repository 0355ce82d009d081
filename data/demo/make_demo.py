#!/usr/bin/env python3
"""Makes the rows of the demonstration workshop: one T-SQL INSERT a line, of up to 20 rows.

    data/demo/make_demo.py            writes the *.sql files beside it

The build carries these files into the program; run this again after a change and commit what it writes. Chains come
from chains.csv (ISO 606, ASME B29.1); firms, people and prices are invented. Days are written as {today-N}: the
program counts them back from the day on which it makes the database. The arithmetic is the program's own: 3.1416 for
the circle, Round half to even on the double, Redondear half away from zero on its 15-digit text.
"""
import csv
import math
import random
from decimal import ROUND_HALF_UP, Decimal
from pathlib import Path

HERE = Path(__file__).resolve().parent
RNG = random.Random(606)


# --- Numbers as the program has them ------------------------------------------------------------------------------

def text_round_trip(value):
    """A value written to a field and read back: at most 15 significant digits."""
    return float(format(value, ".15g"))


def redondear(value, decimals=2):
    step = Decimal(1).scaleb(-decimals)
    return float(Decimal(format(value, ".15g")).quantize(step, rounding=ROUND_HALF_UP))


def multiple(value, step=5):
    """FnMultiplo; every caller has the step 5."""
    if math.floor(value / 5) == value / step:
        return float(round(value))
    return float(round((math.floor(value / step) + 1) * step))


def factor_for(ranges, dp):
    for low, high, constant in sorted(ranges, key=lambda row: row[1]):
        if low <= dp <= high:
            return constant
    return 1.0


def by_factor(ranges, dp):
    k = factor_for(ranges, dp)
    if k == 0:
        return float(round(dp))
    return multiple(float(round(k * dp)))


def hub_diameter(dp):
    return by_factor(HUB_RANGES, dp)


def total_width(dp):
    return by_factor(WIDTH_RANGES, dp)


def outside_diameter(dp, z, roller):
    factor = 0.5 if z <= 6 else 0.55 if z <= 8 else 0.6 if z <= 12 else 0.65 if z <= 18 else 0.7
    return float(round(factor * roller + dp))


def rim(inner_width):
    deduction = 2 if inner_width <= 20 else 2.5 if inner_width <= 30 else 3
    return float(round(inner_width - deduction))


def pitch_diameter(pitch, z):
    return pitch / math.sin(((180 / z) * 3.1416) / 180)


def cut_pitch_diameter(pitch, z):
    """FnDpCadena: cut to two decimals through its text, not rounded."""
    digits = format(pitch_diameter(pitch, z), ".15g")
    assert "." in digits and "e" not in digits
    whole, decimals = digits.split(".")
    return float(whole + "." + decimals[:2])


def weight(formula, a, d, e, factor, b=1.0, c=1.0, pieces=1.0):
    """FnPeso."""
    if formula == 0:
        kilograms = pieces
    elif formula in (1, 5):
        kilograms = pieces * a * b * c / 1000000 * factor
    elif formula in (2, 3, 6):
        kilograms = pieces * ((d * d * a) / 1000000) * factor
    elif formula == 4:
        kilograms = pieces * (((d + e) * (d - e) * a) / 1000000) * factor
    else:
        kilograms = 0
    return redondear(kilograms)


STEPS = [6, 8, 10, 12, 14, 15, 16, 18, 20, 22, 25, 28, 30, 32, 35, 38, 40, 42, 45, 50, 55, 60, 70, 80]
IRON_STEPS = [6, 8, 10, 12, 15, 16, 18, 20, 22, 25, 30, 35, 40, 45, 50, 55, 60]


def number_text(value):
    """CStr of a number that is neither tiny nor huge."""
    return format(value, ".15g").replace(".", ",")


def disc_thickness(kind, exterior, rule_exterior, width, rim_width, iron):
    """msCalcularDisco, then msCalcularGrueso. The steps past the last one compare texts, not numbers."""
    exterior_text = number_text(exterior)
    by_text = (width + 3 if exterior_text <= "120" else rim_width + 1 if exterior_text <= "250"
               else rim_width + 2 if exterior_text <= "500" else rim_width + 3)
    if kind not in (1, 10, 11) and rule_exterior <= 120:
        return width + 3
    n = round(rim_width)
    if n == 0:
        return by_text
    for step in IRON_STEPS if iron else STEPS:
        if step > n:
            return float(step)
    return by_text


# --- Rows as T-SQL ------------------------------------------------------------------------------------------------

class Day:
    """A day counted from today."""

    def __init__(self, back):
        self.back = back


class Sql(str):
    """Goes in as it stands."""


NULL = Sql("NULL")


def literal(value):
    if isinstance(value, Sql):
        return str(value)
    if value is None:
        return "NULL"
    if isinstance(value, Day):
        return "convert(datetime,'{today%s}',103)" % ("" if value.back == 0 else "%+d" % -value.back)
    if isinstance(value, bool):
        return "1" if value else "0"
    if isinstance(value, (int, float)):
        digits = format(value, ".15g")
        assert "e" not in digits, digits
        return "0" if digits == "-0" else digits
    return "N'" + value.replace("'", "''") + "'"


class File:
    """One row a line; where rows are many, rows of the same columns that follow each other share an INSERT."""

    def __init__(self, name, heading, rows_a_line=1):
        self.path, self.rows_a_line = HERE / name, rows_a_line
        self.lines = ["-- " + heading + " Written by make_demo.py."]
        self.head, self.rows = None, 0

    def comment(self, text):
        self.lines.append("-- " + text)
        self.head = None

    def insert(self, table, **columns):
        head = "INSERT INTO %s (%s) VALUES " % (table, ",".join(columns))
        row = "(%s)" % ",".join(literal(value) for value in columns.values())
        if head == self.head and self.rows < self.rows_a_line:
            self.lines[-1] += "," + row
            self.rows += 1
        else:
            self.lines.append(head + row)
            self.head, self.rows = head, 1

    def write(self):
        self.path.write_text("\n".join(self.lines) + "\n", encoding="utf-8")


# --- Prices and articles ------------------------------------------------------------------------------------------

MATERIALS = {1: 0.05, 2: 0.045, 3: 0.06, 4: 0.12, 5: 0.03, 6: 0.0}  # rate of a saw cut; 0 counts as 0.01


class Article:
    def __init__(self, key, code, text, formula, factor, cost, sale, material, cut=1, state=0):
        self.key, self.code, self.text, self.formula, self.factor = key, code, text, formula, factor
        self.cost, self.sale, self.material, self.cut, self.state = cost, sale, material, cut, state

    @property
    def rate(self):
        return MATERIALS[self.material] or 0.01


STEEL, STAINLESS, ALUMINIUM, POLYAMIDE = 6.165, 6.205, 2.121, 0.895  # density × π / 4

ARTICLES = [
    Article(1, "RED-F114", "Redondo acero F-114 (C45)", 2, STEEL, 0.95, 1.40, 1),
    Article(2, "RED-F1140", "Redondo acero F-1140 (C45E) calibrado", 2, STEEL, 1.02, 1.50, 2),
    Article(3, "DIS-F114", "Disco oxicorte acero F-114", 3, STEEL, 1.10, 1.65, 1),
    Article(4, "DIS-S275", "Disco oxicorte hierro S275JR", 3, STEEL, 0.88, 1.30, 3),
    Article(5, "TUB-E355", "Tubo mecánico E355", 4, STEEL, 1.45, 2.10, 2),
    Article(6, "TUB-304", "Tubo inoxidable AISI 304", 6, STAINLESS, 4.10, 5.60, 4),
    Article(7, "PLE-F114", "Pletina acero F-114", 1, 7.85, 1.15, 1.70, 1),
    Article(8, "PLE-S275", "Pletina hierro S275JR", 1, 7.85, 0.92, 1.38, 3),
    Article(9, "RED-304", "Redondo inoxidable AISI 304", 2, STAINLESS, 3.60, 4.95, 4),
    Article(10, "DIS-304", "Disco inoxidable AISI 304", 3, STAINLESS, 3.90, 5.30, 4),
    Article(11, "RED-6082", "Redondo aluminio 6082-T6", 2, ALUMINIUM, 4.35, 6.00, 5),
    Article(12, "RED-PA6", "Redondo poliamida PA 6", 3, POLYAMIDE, 5.20, 7.40, 6),
    Article(13, "BAR-F114", "Barra rectangular acero F-114", 5, 7.85, 1.12, 1.66, 1),
    Article(14, "DIN916-M8", "Espárrago DIN 916 M8 x 10", 0, 1, 0.06, 0.12, 2, cut=None),
    Article(15, "CHA-10X8", "Chaveta DIN 6885 A 10 x 8", 0, 1, 0.45, 0.90, 2, cut=None),
    Article(16, "CAS-1/2'", "Casquillo para cadena de 1/2''", 0, 1, 0.30, 0.55, 2, cut=None),
    Article(17, "RED-F111", "Redondo acero F-111 (descatalogado)", 2, STEEL, 0.80, 1.20, 1, state=1),
    Article(101, "PE-38-12", "Piñón especial Z38 paso 12,7 cinta principal", 0, 1, 0, 0, 1, cut=None),
    Article(102, "PE-19-25", "Piñón especial Z19 paso 25,4 elevador", 0, 1, 0, 0, 1, cut=None),
]
ARTICLE = {article.key: article for article in ARTICLES}


class Material:
    def __init__(self, key, name, article, disc, text, iron=False, rack=False):
        self.key, self.name, self.article = key, name, ARTICLE[article]
        self.disc, self.text, self.iron, self.rack = disc, text, iron, rack


MATERIAL_ROWS = [
    Material(1, "Disco F-114", 3, True, "Acero F-114"),
    Material(2, "Redondo F-114", 1, False, "Acero F-114"),
    Material(3, "Cubo F-1140", 2, False, "Acero F-1140"),
    Material(4, "Disco hierro S275JR", 4, True, "Hierro S275JR", iron=True),
    Material(5, "Tubo E355", 5, False, "Tubo de acero E355"),
    Material(6, "Pletina F-114", 7, False, "Pletina de acero F-114", rack=True),
    Material(7, "Disco inoxidable", 10, True, "Inoxidable AISI 304"),
    Material(8, "Redondo inoxidable", 9, False, "Inoxidable AISI 304"),
    Material(9, "Disco aluminio 6082", 11, True, "Aluminio 6082-T6"),
    Material(10, "Corona tubo AISI 304", 6, True, "Tubo inoxidable AISI 304"),
    Material(11, "Pletina S275JR", 8, False, "Pletina de hierro S275JR", iron=True, rack=True),
    Material(12, "Redondo poliamida", 12, False, "Poliamida PA 6"),
]
MATERIAL = {material.key: material for material in MATERIAL_ROWS}

# Multipliers of the pitch diameter, by range.
HUB_RANGES = [(0, 60, 0.7), (60, 120, 0.65), (120, 200, 0.6), (200, 350, 0.5), (350, 600, 0.4), (600, 1200, 0.3),
              (1200, 5000, 0.22)]
WIDTH_RANGES = [(0, 40, 0.75), (40, 80, 0.55), (80, 150, 0.42), (150, 300, 0.3), (300, 600, 0.2), (600, 1200, 0.14),
                (1200, 5000, 0.08)]


def write_dimension_constants():
    """An empty workshop has them, too: without them a hub would be as large as the pitch circle."""
    out = File("05_dimension_constants.sql", "Dimension constants.")
    for kind, ranges in ((1, HUB_RANGES), (2, WIDTH_RANGES)):
        for low, high, constant in ranges:
            out.insert("Calculos", Calculos_Tipo=kind, Calculos_Valor1=low, Calculos_Valor2=high,
                       Calculos_Constante=constant)
    out.write()


def write_prices_and_articles():
    out = File("10_prices_and_articles.sql", "Saw rates, articles and materials.")
    for key, rate in MATERIALS.items():
        out.insert("materiales", mat_id=key, mat_pcs=rate)
    for a in ARTICLES:
        out.insert("ART", ART_ID=a.key, ART_COD=a.code, ART_DES=a.text, ART_For=a.formula, ART_Fac=a.factor,
                   ART_Pco=a.cost, ART_Pve=a.sale, ART_Mat=a.material, ART_Corte=a.cut, ART_Estado=a.state)
    for m in MATERIAL_ROWS:
        out.insert("PARDPI", PARDPI_NOM=m.name, PARDPI_ART=m.article.key, PARDPI_HIERRO=m.iron, PARDPI_DISCO=m.disc,
                   PARDPI_MATP=m.text, PARDPI_CRE=m.rack)
    out.write()


# --- Staff and machines -------------------------------------------------------------------------------------------

SECTIONS = {1: "Corte", 2: "Torno", 3: "Tallado", 4: "Fresado", 5: "Brochado y rectificado", 6: "Soldadura",
            7: "Acabado"}
MACHINES = {  # machine: name, section
    131: ("Sierra de cinta", 1), 132: ("Sierra de disco", 1), 201: ("Torno CNC 1", 2), 202: ("Torno CNC 2", 2),
    203: ("Torno paralelo grande", 2), 301: ("Talladora de engranajes", 3), 302: ("Talladora de cremalleras", 3),
    303: ("Fresadora madre 1", 3), 401: ("Centro de mecanizado", 4), 402: ("Fresadora universal", 4),
    501: ("Brochadora", 5), 502: ("Rectificadora", 5), 601: ("Soldadura MIG", 6), 701: ("Banco de ajuste", 7),
    801: ("Prensa de montaje", None), 901: ("Horno de temple", 7)}  # 801 has no section, 901 nobody to run it
OPERATORS = {  # operator: name, price an hour, own machine
    1: ("Aitor R.", 32.0, 131), 2: ("Begoña L.", 38.0, 201), 3: ("Carlos M.", 38.0, 202), 4: ("Dolores P.", 42.0, 301),
    5: ("Eneko S.", 42.0, 303), 6: ("Fermín A.", 40.0, 401), 7: ("Garazi T.", 36.0, 501), 8: ("Iñaki U.", 34.0, 601),
    9: ("Jesús V.", 30.0, 701), 10: ("Karmele Z.", 36.0, None)}
ASSIGNED = [  # operator, machine, price an hour on it
    (1, 131, 31.0), (1, 132, 31.0), (2, 201, 39.5), (2, 202, 39.5), (3, 202, 38.5), (3, 203, 41.0), (4, 301, 44.0),
    (4, 302, 44.0), (5, 303, 42.5), (5, 301, 43.0), (6, 401, 45.0), (6, 402, 38.0), (7, 501, 36.0), (7, 502, 40.0),
    (9, 701, 30.0), (10, 402, 37.0), (10, 502, 39.0), (10, 801, 28.0)]


def price_of(machine):
    """The first operator of a machine and the price an hour, as the labour form lists them."""
    own = next((key for key, row in OPERATORS.items() if row[2] == machine), None)
    prices = {operator: price for operator, assigned, price in ASSIGNED if assigned == machine}
    if own is not None:
        return own, prices.get(own, OPERATORS[own][1])
    operator = next(iter(prices))
    return operator, prices[operator]


def write_staff_and_machines():
    out = File("20_staff_and_machines.sql", "Sections, machines, operators and who works where.")
    for key, name in SECTIONS.items():
        out.insert("RSEC", RSEC_ID=key, RSEC_NOM=name)
    for key, (name, section) in MACHINES.items():
        out.insert("MAQ", MAQ_ID=key, MAQ_NOM=name, MAQ_SEC=section)
    for key, (name, price, machine) in OPERATORS.items():
        out.insert("OPE", OPE_ID=key, OPE_NOM=name, OPE_VENTA=price, OPE_MAD=machine)
    for operator, machine, price in ASSIGNED:
        out.insert("OBM", OBM_OPE=operator, OBM_MAQ=machine, OBM_PTR=price)
    out.write()


# --- Customers ----------------------------------------------------------------------------------------------------

CUSTOMERS = [  # code, fiscal name, commercial name, finance charge, under risk control, limit
    (1001, "TRANSPORTADORES CINTARBOL SL", "CINTARBOL", 1.5, 0, 0),
    (1002, "ÁRIDOS QUINTAPEÑA SA", "QUINTAPEÑA", 0, 1, 30000),
    (1003, "HARINERAS TORMELUNA SL", "HARINAS TORMELUNA", 2.0, 1, 12000),
    (1004, "CONSERVAS MARBILLOSA SA", "MARBILLOSA", 0, 0, 0),
    (1005, "PAPELERA NUBARROJA SL", "NUBARROJA", 1.0, 1, 50000),
    (1006, "CERÁMICAS LADRIZALBA SL", "LADRIZALBA", 0, 1, 8000),
    (1007, "BODEGAS UVALARGUEÑA SL", "UVALARGUEÑA", 0, 0, 0),
    (1008, "ACEITES OLIVENDUERO SL", "OLIVENDUERO", 1.5, 1, 15000),
    (1009, "MADERAS ROBLEANCHO SL", "ROBLEANCHO", 0, None, None),
    (1010, "RECICLAJES VUELTALGA SL", "VUELTALGA", 2.5, 1, 6000),
    (1011, "MAQUINARIA TRIGOVERDÍN SA", "TRIGOVERDÍN", 0, 0, 0),
    (1012, "ELEVADORES ALZALUZ SA", "ALZALUZ", 1.0, 1, 25000),
    (1013, "LAVANDERÍAS ESPUMAZUL SL", "ESPUMAZUL", 0, 0, 0),
    (1014, "HORMIGONES GRISPEDRA SL", "GRISPEDRA", 0, 1, None),
    (1015, "EMBALAJES CARTONIEVE SL", "CARTONIEVE", 0.5, 0, 0),
    (1016, "AZUCARERA DULCERREMO SA", "DULCERREMO", 0, 1, 40000),
    (1017, "TALLERES D'ARCOMUR SL", "D'ARCOMUR", 0, 1, 3000),
    (1018, "PIENSOS GRANOFINO DEL VALLE SL", "GRANOFINO", 0, 0, 0),
]


AT_THE_LIMIT = 17  # owes exactly what its limit is, in one receivable


def write_customers():
    out = File("30_customers.sql", "Customers with and without risk control, receivables and delivery notes.")
    rng = random.Random(1)
    for i, (code, name, short, charge, risk, limit) in enumerate(CUSTOMERS, start=1):
        out.insert("CLI", CLI_ID=i, CLI_COD=code, CLI_NOM=name, CLI_COMER=short, CLI_GtosFinan=charge,
                   CLI_Riesgo=risk, CLI_ImpMaxRiesgo=limit)
    others = [i for i in range(1, len(CUSTOMERS) + 1) if i != AT_THE_LIMIT]
    for i in others:
        for _ in range(rng.randint(1, 4)):
            out.insert("REC", REC_IMPORTE=redondear(rng.uniform(120, 2400)), REC_SIT=rng.choice("1123455"),
                       REC_IdClPr=i)
    note = 0
    for i in others:
        for _ in range(rng.randint(0, 3)):
            note += 1
            out.insert("Cav", Cav_Id=note, Cav_Situa=rng.choice((1, 2, 3, 4)), Cav_IdCli=i)
            for _ in range(rng.randint(1, 3)):
                out.insert("Lav", Lav_Idcav=note, Lav_Importe=redondear(rng.uniform(25, 600)))
    out.comment("1010 owes more than its limit, 1017 exactly its limit.")
    out.insert("REC", REC_IMPORTE=7250.4, REC_SIT="2", REC_IdClPr=10)
    out.insert("REC", REC_IMPORTE=3000, REC_SIT="1", REC_IdClPr=AT_THE_LIMIT)
    out.write()


# --- Chains -------------------------------------------------------------------------------------------------------

CHAIN_NAMES = ["ISO 3/8''", "ISO 1/2''", "ISO 5/8''", "ISO 3/4''", "ISO 1''", "ISO 1 1/4''", "ISO 1 1/2''",
               "ISO 1 3/4''", "ISO 2''", "ISO 2 1/2''", "ASA 35 3/8''", "ASA 40 1/2''", "ASA 50 5/8''",
               "ASA 60 3/4''", "ASA 80 1''", "ASA 100 1 1/4''", "ASA 120 1 1/2''", "ASA 140 1 3/4''", "ASA 160 2''",
               "ASA 180 2 1/2''"]
DESIGNATIONS = ["06B", "08B", "10B", "12B", "16B", "20B", "24B", "28B", "32B", "40B", "35", "40", "50", "60", "80",
                "100", "120", "140", "160", "180"]
# Transverse pitch of the ASME B29.1 chains, which the table of dimensions leaves open.
ASME_TRANSVERSE = {"35": 10.13, "40": 14.38, "50": 18.11, "60": 22.78, "80": 29.29, "100": 35.76, "120": 45.44,
                   "140": 48.87, "160": 58.55, "180": 65.84}
TEETH = list(range(10, 46)) + [48, 50, 52, 54, 57, 60, 65, 70, 76, 80, 95, 114]


class Chain:
    def __init__(self, index, row):
        self.index, self.name = index, CHAIN_NAMES[index]
        self.pitch, self.roller = float(row["pitch_mm"]), float(row["roller_d1_mm"])
        self.inner, self.tooth = float(row["inner_b1_mm"]), float(row["tooth_B1_simplex_mm"])
        self.transverse = float(row["transverse_pt_mm"] or ASME_TRANSVERSE[row["designation"]])


def read_chains():
    with open(HERE / "chains.csv", encoding="utf-8") as source:
        rows = {row["designation"]: row for row in csv.DictReader(source, delimiter=";")}
    return [Chain(index, rows[designation]) for index, designation in enumerate(DESIGNATIONS)]


CHAINS = read_chains()


def bore_for(hub):
    return next(bore for limit, bore in ((30, 10), (50, 12), (70, 16), (90, 20), (120, 25), (150, 30), (200, 40),
                                         (10000, 50)) if hub <= limit)


def double_values(chain, z):
    """A row of PDM: rim of one row of teeth b1, rim of both B2, and the gap X between the rows."""
    dp = cut_pitch_diameter(chain.pitch, z)
    df = redondear(dp - chain.roller)
    b1 = chain.tooth
    b2 = redondear(b1 + chain.transverse)
    largest_hub = math.floor((df - 0.35 * chain.pitch) / 5) * 5
    dm = max(5.0, min(hub_diameter(dp), float(largest_hub)))
    return {"Z": z, "Paso": chain.pitch, "AC": chain.inner, "Rodillo": chain.roller, "b1": b1, "b2": b2,
            "X": redondear(b2 - 2 * b1), "H1": redondear((df - dm) / 2), "De": outside_diameter(dp, z, chain.roller),
            "Dp": dp, "Df": df, "Dm": dm, "D2": float(bore_for(dm)),
            "A": multiple(max(total_width(dp), b2 * 1.5))}


def write_chains():
    out = File("40_chains.sql", "Values of double sprockets for the 20 chains, computed from chains.csv.",
               rows_a_line=20)
    for chain in CHAINS:
        for z in TEETH:
            values = double_values(chain, z)
            out.insert("PDM", PDM_Tipo=chain.index, PDM_Titulo="Piñon %s Doble Z%d" % (chain.name, z),
                       **{"PDM_" + name: value for name, value in values.items()})
    out.write()


# --- Gears --------------------------------------------------------------------------------------------------------

MODULES = [1, 1.5, 2, 2.5, 3, 4, 5, 6]
GEAR_TEETH = list(range(12, 31)) + [32, 35, 36, 38, 40, 45, 48, 50, 55, 60, 70, 80, 90, 100, 120]


def gear_values(family, module, z):
    dp = redondear(z * module)
    face = 10.0 * module
    root = redondear(dp - 2.5 * module)
    hub = max(5.0, math.floor(0.65 * root / 5) * 5.0) if family == 0 else 0.0
    width = face + 5.0 * math.ceil(2 * module / 5) + 5 if family == 0 else face
    bore = float(bore_for(hub)) if family == 0 else float(bore_for(0.5 * root))
    return {"Modulo": module, "Z": z, "Paso": redondear(module * 3.1416), "Dp": dp, "Di": root,
            "De": redondear(dp + 2 * module), "Dm": hub, "D1": min(bore, math.floor(root / 2)), "H": 2.25 * module,
            "A": width, "B": face, "C": redondear(width - face)}


def write_gears():
    out = File("45_gears.sql", "Gears and gear discs of the common modules.", rows_a_line=20)
    for family in (0, 1):
        for module in MODULES:
            for z in GEAR_TEETH:
                out.insert("ENG", ENG_Tipo=family,
                           **{"ENG_" + name: value for name, value in gear_values(family, module, z).items()})
    out.write()


# --- Purchases ----------------------------------------------------------------------------------------------------

MEASURES = ("ANCHO", "ESPESOR", "DEXTERIOR", "DINTERIOR", "LARGO")


def measures_of(article, rng):
    """Width, thickness, outside and inner diameter, length of a lot, as the article's formula needs them."""
    if article.formula in (1, 5):
        return {"ANCHO": rng.choice((30, 40, 50, 60, 80)), "ESPESOR": rng.choice((12, 20, 25, 30))}
    if article.formula == 2:
        return {"DEXTERIOR": rng.choice((40, 50, 65, 80, 100, 125)), "LARGO": rng.choice((3000, 6000))}
    if article.formula == 3:
        return {"DEXTERIOR": rng.choice((150, 180, 200, 250, 320, 400))}
    if article.formula in (4, 6):
        outside = rng.choice((63.5, 80, 101.6, 120))
        return {"DEXTERIOR": outside, "DINTERIOR": outside - 20, "LARGO": rng.choice((2000, 6000))}
    return {}


def write_purchases():
    out = File("50_purchases.sql", "Suppliers, and the delivery notes of the last months.", rows_a_line=20)
    rng = random.Random(90)
    for supplier in range(1, 7):
        out.insert("PRO", PRO_ID=supplier)
    bought = [article for article in ARTICLES if article.key < 100 and article.state == 0]
    backs = sorted([0, 1, 90, 91, 120, 200] + [rng.randint(2, 89) for _ in range(54)], reverse=True)
    for note, back in enumerate(backs, start=1):
        out.insert("CAC", CAC_ID=note, CAC_FECHA=Day(back), CAC_SERIE="A", CAC_NUMERO=5000 + note,
                   CAC_IDPRO=rng.randint(1, 6))
    for note, back in enumerate(backs, start=1):
        for article in bought if back in (0, 90, 91) else rng.sample(bought, rng.randint(1, 4)):
            measures = measures_of(article, rng)
            out.insert("LAC", LAC_IDCAC=note, LAC_CODART=article.code,
                       LAC_PRECIO=redondear(article.cost * rng.uniform(0.94, 1.06), 4),
                       **{"LAC_" + name: measures.get(name) for name in MEASURES})
    out.write()


# --- Proposals ----------------------------------------------------------------------------------------------------

HOBBED, TURNED, BROACHED, WELDED = 303, 201, 501, 601


def labour(kind, exterior, thickness, z):
    """Machine and minutes for one piece."""
    lines = [(TURNED if exterior <= 250 else 203, 6 + exterior / 18 + thickness / 12)]
    if kind == 13:
        return [(302, 10 + exterior / 40)]
    if kind in (8, 9):
        lines.append((301, 4 + z * 0.35))
    elif kind not in (3, 11):
        lines.append((HOBBED, 3 + z * 0.18 + thickness / 10))
    if kind not in (1, 6, 7, 9, 14):
        lines.append((BROACHED, 3.5))
        if exterior > 120:
            lines.append((WELDED, 5 + exterior / 40))
    return lines


def labour_rows(kind, exterior, thickness, z):
    rows = []
    for machine, minutes in labour(kind, exterior, thickness, z):
        minutes = redondear(minutes, 1)
        operator, price = price_of(machine)
        rows.append({"Ope": operator, "Maq": machine, "Minutos": minutes, "Pvp": price,
                     "Tiempo": redondear(minutes * 60 / 3600, 4), "Importe": redondear(minutes * (price / 60))})
    return rows


def plain_measures(kind, chain, z):
    dp = round(pitch_diameter(chain.pitch, z), 2)
    root = text_round_trip(dp - chain.roller)
    exterior = outside_diameter(dp, z, chain.roller)
    if kind in (3, 11):
        last_two = int(number_text(round(root, 2) * 100)[-2:])
        exterior = float(round(root + 0.5 if last_two > 0 else root))
    hub, width, rim_width = hub_diameter(dp), total_width(dp), rim(chain.inner)
    hub_width = text_round_trip(width - rim_width)
    measures = {"Z": z, "Pas": chain.pitch, "AC": chain.inner, "Rodillo": chain.roller, "DmPri": dp, "DmFon": root,
                "DmExt": exterior, "DmCub": hub, "Alt": round((exterior - root) / 2, 2), "AnchoTotal": width,
                "Llanta": rim_width, "AnchoCubo": hub_width, "Modulo": 0}
    if kind in (2, 3):
        measures["AnchoTotal"] = redondear(hub_width + rim_width + hub_width)
    elif kind == 1:
        measures.update(AnchoTotal=redondear(rim_width), DmCub=0, AnchoCubo=0)
    elif kind in (10, 11):
        second = max(10.0, hub_width - 10)
        measures["AnchoTotal"] = redondear(hub_width + rim_width + second)
        measures.update(PDM_b1=max(15.0, hub - 10), PDM_h1=second)
    return measures


def double_measures(kind, chain, z):
    row = double_values(chain, z)
    rim_width = redondear(((row["b2"] - row["X"]) / 2) * 3 + row["X"] * 2) if kind in (12, 14) else row["b2"]
    hub_width = redondear(row["A"] - row["b2"])
    measures = {"Z": z, "Pas": row["Paso"], "AC": row["AC"], "Rodillo": row["Rodillo"], "DmPri": row["Dp"],
                "DmFon": row["Df"], "DmExt": row["De"], "DmCub": row["Dm"],
                "Alt": redondear((row["De"] - row["Df"]) / 2),
                "AnchoTotal": row["A"], "Llanta": rim_width, "AnchoCubo": hub_width, "Modulo": 0,
                "PDM_Tipo": chain.index, "PDM_Texto": chain.name, "PDM_b1": row["b1"], "PDM_x": row["X"],
                "PDM_h1": redondear((row["De"] - row["Df"]) / 2 + row["H1"]), "Eje": row["D2"]}
    if kind in (6, 7):
        measures.update(DmCub=0, AnchoCubo=0, AnchoTotal=rim_width)
    elif kind in (12, 14):
        measures["AnchoTotal"] = text_round_trip(hub_width + rim_width)
    return measures


def gear_measures(kind, module, z):
    row = gear_values(0 if kind == 8 else 1, module, z)
    return {"Z": z, "Pas": row["Paso"], "AC": 0, "Rodillo": 0, "DmPri": row["Dp"], "DmFon": row["Di"],
            "DmExt": row["De"], "DmCub": row["Dm"], "Alt": row["H"], "AnchoTotal": row["A"], "Llanta": row["B"],
            "AnchoCubo": row["C"], "Modulo": module, "Eje": row["D1"]}


def cost_of_disc(kind, m, material):
    article = material.article
    rule_exterior = outside_diameter(m["DmPri"], m["Z"], m["Rodillo"])
    thickness = disc_thickness(kind, m["DmExt"], rule_exterior, m["AnchoTotal"], m["Llanta"], material.iron)
    diameter = m["DmExt"] + 5
    inner = float(math.floor(m["DmFon"] * 0.5)) if article.formula in (4, 6) else 0
    kilograms = weight(article.formula, thickness, diameter, inner, article.factor)
    cut = redondear(diameter * article.rate) if kilograms > 0 or m["DmExt"] <= 120 else 0
    return {"IdParDisco": material.key, "ArtDisco": article.key, "DisCortDM": diameter, "DisCortAN": thickness,
            "DmInterno": inner, "DisCortPESO": kilograms, "DisPVE": article.sale,
            "DisImporte": redondear(article.sale * kilograms + cut), "CosteCorteDisco": cut}


def cost_of_hub(kind, m, material):
    article = material.article
    nothing = {"IdParCubo": material.key, "ArtCubo": article.key, "CubCortDM": 0, "CubCortAN": 0, "CuboDmInterno": 0,
               "CubCortPESO": 0, "CubPVE": 0, "CubImporte": 0}
    if kind in (1, 6, 7, 9, 14) or (kind not in (10, 11) and m["DmExt"] <= 120):
        return nothing
    diameter = multiple(m["DmCub"] + 5)
    length = text_round_trip((m["AnchoTotal"] if kind in (10, 11) else m["AnchoCubo"]) + 3)
    inner = float(max(5, math.floor(diameter * 0.4))) if article.formula in (4, 6) else 0
    kilograms = weight(article.formula, length + 2, diameter, inner, article.factor)
    cut = redondear(diameter * article.rate)
    if kind in (2, 3):
        kilograms, cut = redondear(kilograms + kilograms), redondear(2 * cut)
    return {**nothing, "CubCortDM": diameter, "CubCortAN": length, "CuboDmInterno": inner, "CubCortPESO": kilograms,
            "CubPVE": article.sale, "CubImporte": redondear(article.sale * kilograms + (cut if kilograms > 0 else 0))}


def rack(rng):
    material = MATERIAL[rng.choice((6, 11))]
    article = material.article
    module = rng.choice((1.5, 2, 2.5, 3, 4))
    pitch, tooth = redondear(module * 3.1416), redondear(module * 2.25)
    height, length, width = rng.choice((20, 25, 30, 40)), rng.choice((500, 1000, 1500, 2000)), rng.choice((20, 30, 40))
    # The cut's length is the sketch's B, its width the sketch's L, its thickness H.
    kilograms = weight(1, length, 0, 0, article.factor, width, height)
    cut = redondear(max(width, height) * article.rate)
    amount = redondear(cut + kilograms * article.sale)
    hub = MATERIAL[2]
    return {"Z": 0, "Pas": pitch, "AC": tooth, "Rodillo": 0, "DmPri": 0, "DmFon": height, "DmExt": 0, "DmCub": 0,
            "Alt": height, "AnchoTotal": 0, "Llanta": length, "AnchoCubo": width, "Modulo": module,
            "IdParDisco": material.key, "ArtDisco": article.key, "DisCortDM": width, "DisCortAN": length,
            "DmInterno": 0, "DisCortPESO": kilograms, "DisPVE": article.sale, "DisImporte": amount,
            "CosteCorteDisco": 0, "IdParCubo": hub.key, "ArtCubo": hub.article.key, "CubCortDM": 0, "CubCortAN": 0,
            "CuboDmInterno": 0, "CubCortPESO": 0, "CubPVE": 0, "CubImporte": 0}


FAVOURITES = [(1, 17), (1, 19), (1, 25), (1, 38), (1, 57), (2, 15), (2, 19), (2, 38), (3, 17), (3, 21), (3, 30),
              (3, 45), (4, 13), (4, 19), (4, 23), (4, 30), (5, 15), (5, 20), (6, 17), (11, 21), (13, 17), (13, 36),
              (14, 18), (15, 19)]
KINDS = [0] * 44 + [1] * 15 + [2] * 10 + [3] * 6 + [4] * 6 + [5] * 2 + [6] * 3 + [8] * 5 + [9] * 2 + [10] * 2 + \
    [12] * 2 + [13] * 3
REMARKS = ["", "", "", "", "Dientes templados por inducción", "Entregar con certificado de material",
           "Repetición del pedido anterior", "Pintado en gris RAL 7016", "Taladros M8 en el cubo según plano"]
PROPOSALS = 320


def measures_for(kind, rng):
    if kind == 13:
        return rack(rng)
    if kind in (8, 9):
        return gear_measures(kind, rng.choice((2, 2.5, 3, 4)), rng.choice((18, 20, 24, 30, 40, 60)))
    index, z = rng.choice(FAVOURITES)
    if kind in (4, 5, 6, 7, 12, 14):
        return double_measures(kind, CHAINS[index], z)
    return plain_measures(kind, CHAINS[index], z)


def make_proposal(number, back, rng):
    kind = rng.choice(KINDS)
    m = measures_for(kind, rng)
    if kind != 13:
        one_piece = kind != 1 and m["DmExt"] <= 120
        m.update(cost_of_disc(kind, m, MATERIAL[rng.choice((2, 2, 3, 8) if one_piece else (1, 1, 1, 4, 4, 7, 10))]))
        m.update(cost_of_hub(kind, m, MATERIAL[rng.choice((3, 3, 3, 2, 5, 8))]))
    lines = labour_rows(kind, m["DmExt"] or m["Llanta"], m["DisCortAN"], m["Z"])
    code, name = rng.choice([row[:2] for row in CUSTOMERS])
    units = rng.choice((1, 1, 2, 2, 3, 4, 5, 6, 10, 20))
    material = m["DisImporte"] if kind == 13 else redondear(m["DisImporte"] + m["CubImporte"])
    saw, hours = rng.choice((0, 0, 0, 2.5)), redondear(sum(line["Importe"] for line in lines))
    outside, sundries = rng.choice((0, 0, 0, 12.5, 30)), rng.choice((0, 0, 1.5))
    piece = redondear(material + saw + hours + outside + sundries)
    reference = "%s-%02d%s" % (rng.choice(("PL", "REF", "P", "CT")), rng.randint(1, 60), rng.choice(("", "-A", "-B")))
    bore = float(rng.choice((20, 24, 24, 25, 30, 35)))
    row = {"DPI_Tipo": kind, "DPI_Fecha": Day(back), "DPI_FAcepta": None, "DPI_Orden": None, "DPI_CodCliente": code,
           "DPI_NomCliente": name, "DPI_RefCli": reference, "DPI_PedCliente": None, "DPI_FPedCliente": None,
           "DPI_FechaEntrega": None, "DPI_Obser": rng.choice(REMARKS), "DPI_Eje": m.pop("Eje", bore),
           "DPI_Chav": rng.choice((0, 6, 8, 10)), "DPI_Pri": rng.choice((0, 0, 1, 2))}
    row.update({"DPI_" + column: value for column, value in m.items()})
    row.update(DPI_FijoSierra=saw, DPI_ImpMat=material, DPI_ImpMO=hours, DPI_ImpTS=outside, DPI_ImpVA=sundries,
               DPI_ImpTP=piece, DPI_Unidades=units, DPI_Importe=redondear(piece * units),
               DPI_HERRAMIENTA=rng.choice(("Broca", "Broca", "H7", "H5")), DPI_Acopla=int(rng.random() < 0.1),
               DPI_Extra="", DPI_ProTex=rng.choice(("", "", "", "Aceros Ferralumbre", "Almacén propio")))
    row["number"], row["lines"], row["back"] = number, lines, back
    return row


def description(p):
    kind = p["DPI_Tipo"]
    mec = "Mec. " if p["DPI_Acopla"] == 1 else ""
    t = {name: number_text(p["DPI_" + name]) for name in ("Z", "Pas", "AC", "Rodillo", "Eje", "Modulo", "Alt",
                                                          "AnchoCubo", "Llanta")}
    tail = "%(Z)s Paso %(Pas)s AC %(AC)s Rodillo %(Rodillo)s Eje %(Eje)s" % t
    short = "%(Z)s Eje %(Eje)s" % t
    chain = p.get("DPI_PDM_Texto") or ""
    if kind == 13:
        return "Cremallera  Paso %(Pas)s Modulo %(Modulo)s (%(Alt)sx%(AnchoCubo)sx%(Llanta)s)" % t
    return {0: mec + "Piñon Especial Z " + tail, 1: mec + "Disco Z " + tail, 2: mec + "Piñon de dos cubos Z " + tail,
            10: mec + "Piñon de dos cubos Z " + tail, 3: mec + "Polea Lisa Z " + tail,
            4: mec + "Piñon " + chain + " Doble de Z " + short,
            5: mec + "Piñon " + chain + " de dos cadenas de Z " + short,
            6: mec + "Disco " + chain + " Doble de Z " + short,
            7: mec + "Disco " + chain + " de dos cadenas de Z " + short, 8: mec + "Engranaje Recto Z " + tail,
            9: mec + "Disco Engranaje recto Z " + tail,
            12: mec + "Piñon " + chain + " Triple de Z " + short}.get(kind, "")


SPROCKET_COLUMNS = [
    ("Pas", "Pas"), ("Die", "Z"), ("Rod", "Rodillo"), ("Anca", "AC"), ("Eje", "Eje"), ("Chav", "Chav"), ("Pri", "Pri"),
    ("DmPri", "DmPri"), ("DmFon", "DmFon"), ("DmExt", "DmExt"), ("DmCub", "DmCub"), ("Alt", "Alt"),
    ("Ancto", "AnchoTotal"), ("Llanta", "Llanta"), ("Anccu", "AnchoCubo"), ("Disdm", "DisCortDM"),
    ("DisGr", "DisCortAN"), ("Cubdm", "CubCortDM"), ("CubGr", "CubCortAN"), ("PesoDis", "DisCortPESO"),
    ("PesoCub", "CubCortPESO")]


def material_head(order, article):
    return {"Mat_Ord": order, "Mat_Ser": "0", "Mat_Art": article.code, "Mat_Des": article.text,
            "Mat_Pco": article.cost, "Mat_Pve": article.sale, "Mat_Can": 0, "Mat_Med": "Kg", "Mat_Tca": 0,
            "Mat_For": str(article.formula), "Mat_FCA": article.formula, "Mat_Fac": article.factor,
            "Mat_Mat": article.material, "Mat_Imp": 0}


def material_rows(p, order, sprocket, rng):
    """The rows of Mat, and how many of the pieces are cut in the shop."""
    rows, cuts, units = [], 0, p["DPI_Unidades"]
    if p["DPI_DisCortPESO"] != 0:
        article = ARTICLE[p["DPI_ArtDisco"]]
        row = material_head(order, article)
        row.update(Mat_Idp=sprocket)
        here = article.cut is not None and rng.random() < 0.7
        if p["DPI_Tipo"] == 13:
            row.update(Mat_Anc=p["DPI_DisCortDM"], Mat_Esp=p["DPI_DmFon"], Mat_Dex=0, Mat_Din=0, MAT_DmCorte=0,
                       MAT_CubCorte=0, Mat_Lar=p["DPI_Llanta"], Mat_Uni=units, MAT_UdCorte=units if here else 0,
                       MAT_LargoCorte=p["DPI_DisCortAN"] if here else 0)
        elif article.formula in (6, 0, 5):
            here = False
            row.update(Mat_Anc=1, Mat_Esp=1, Mat_Dex=p["DPI_DisCortDM"], Mat_Din=p["DPI_DmInterno"], MAT_UdCorte=0,
                       MAT_LargoCorte=0, MAT_DmCorte=0, MAT_CubCorte=0, Mat_Lar=p["DPI_DisCortAN"], Mat_Uni=units)
        else:
            row.update(Mat_Anc=1, Mat_Esp=1, Mat_Dex=p["DPI_DisCortDM"], Mat_Uni=1,
                       Mat_Lar=redondear((p["DPI_DisCortAN"] + 2) * units), Mat_Din=1,
                       MAT_UdCorte=units if here else 0, MAT_LargoCorte=p["DPI_DisCortAN"] if here else 0,
                       MAT_DmCorte=p["DPI_DisCortDM"] if here else 0, MAT_CubCorte=1)
        cuts += int(here)
        rows.append(row)
    if p["DPI_CubCortPESO"] != 0 and p["DPI_Tipo"] in (0, 2, 3, 4, 5, 10, 12):
        article = ARTICLE[p["DPI_ArtCubo"]]
        pair = 2 if p["DPI_Tipo"] in (2, 3) else 1
        here = article.cut is not None and rng.random() < 0.7
        row = material_head(order, article)
        row.update(Mat_Idp=sprocket, Mat_Uni=1, Mat_Lar=redondear((p["DPI_CubCortAN"] + 2) * units * pair),
                   Mat_Anc=1, Mat_Esp=1, Mat_Din=p["DPI_CuboDmInterno"] if article.formula == 4 else 1,
                   Mat_Dex=p["DPI_CubCortDM"], MAT_UdCorte=units * pair if here else 0,
                   MAT_LargoCorte=p["DPI_CubCortAN"] if here else 0, MAT_DmCorte=p["DPI_CubCortDM"] if here else 0,
                   MAT_CubCorte=2 if here else 0)
        cuts += int(here)
        rows.append(row)
    return rows, cuts


class WorkOrders:
    """Accepted proposals turned into orders, in the order of their acceptance."""

    def __init__(self, rng):
        self.rng = rng
        self.rows = {"ORDEN": [], "OrdPiñones": [], "Mat": [], "RUT": []}
        self.order_key, self.number, self.sprocket, self.queue = 0, 24000, 0, {}

    def insert(self, table, **columns):
        self.rows[table].append(columns)

    def accept(self, p, accepted_back):
        self.order_key += 1
        self.number += 1
        delivery = accepted_back - self.rng.choice((10, 15, 20, 30))
        p.update(DPI_FAcepta=Day(accepted_back), DPI_Orden=self.number,
                 DPI_PedCliente="PC-%d" % self.rng.randint(100, 9999), DPI_FPedCliente=Day(accepted_back + 1),
                 DPI_FechaEntrega=Day(delivery))
        charge = next(row[3] for row in CUSTOMERS if row[0] == p["DPI_CodCliente"])
        generated = "Orden generada desde el presupuesto nº %d , el {today%+d}" % (p["number"], -accepted_back)
        remark = p["DPI_Obser"] or generated
        known = {article.code: article.text for article in ARTICLES if article.key > 100}
        earlier = self.rng.choice(list(known)) if self.rng.random() < 0.15 else None
        self.insert("ORDEN", ORDEN_NUM=self.number, ORDEN_SER="0", ORDEN_CLI=p["DPI_CodCliente"],
                        ORDEN_NOM=p["DPI_NomCliente"], ORDEN_GF=charge, ORDEN_OBS=remark[:150],
                        ORDEN_UNI=p["DPI_Unidades"], ORDEN_REF=p["DPI_RefCli"], ORDEN_INI=Day(accepted_back),
                        ORDEN_ADE=known.get(earlier, "")[:100], ORDEN_ART=earlier, ORDEN_PLA=Day(delivery),
                        ORDEN_PRE=p["DPI_ImpTP"], ORDEN_IdDPI=p["number"],
                        ORDEN_PED=p["DPI_PedCliente"], ORDEN_DES=description(p)[:100])
        sprocket = 0
        if p["DPI_Tipo"] != 13:
            self.sprocket += 1
            sprocket = self.sprocket
            self.insert("OrdPiñones", Opi_OrdId=self.order_key,
                            **{"Opi_" + column: p["DPI_" + source] for column, source in SPROCKET_COLUMNS})
        rows, cuts = material_rows(p, self.number, sprocket, self.rng)
        for row in rows:
            self.insert("Mat", **row)
        route = [(131, 1)] * cuts + [(line["Maq"], redondear(line["Tiempo"] * p["DPI_Unidades"]))
                                     for line in p["lines"]]
        for position, (machine, hours) in enumerate(route, start=1):
            self.queue[machine] = self.queue.get(machine, 0) + 1
            self.insert("RUT", RUT_IdUsu=1, RUT_pos=position, RUT_IdOrden=self.order_key,
                            RUT_NumOrden=self.number, RUT_Maq=machine, RUT_Estimado=hours,
                            RUT_Mpos=self.queue[machine])


def write_proposals():
    days = sorted((RNG.randint(1, 720) for _ in range(PROPOSALS)), reverse=True)
    proposals = [make_proposal(number, back, RNG) for number, back in enumerate(days, start=1)]
    accepted = [(p["back"] - RNG.randint(0, min(12, p["back"])), p) for p in proposals if RNG.random() < 0.45]
    orders = WorkOrders(RNG)
    for back, p in sorted(accepted, key=lambda pair: (-pair[0], pair[1]["number"])):
        orders.accept(p, back)
    out = File("60_proposals.sql", "Earlier proposals with their labour; the accepted ones with their work orders.",
               rows_a_line=20)
    columns = list(dict.fromkeys(column for p in proposals for column in p if column.startswith("DPI_")))
    for p in proposals:
        out.insert("DPI", **{column: p.get(column) for column in columns})
    for p in proposals:
        for line in p["lines"]:
            out.insert("MoDpi", MoDpi_Dpi=p["number"], **{"MoDpi_" + name: value for name, value in line.items()})
    for table, rows in orders.rows.items():
        for row in rows:
            out.insert(table, **row)
    out.write()


if __name__ == "__main__":
    write_dimension_constants()
    write_prices_and_articles()
    write_staff_and_machines()
    write_customers()
    write_chains()
    write_gears()
    write_purchases()
    write_proposals()
