#!/usr/bin/env python3
"""Writes the project `bestest` of the program tree's example folder: the
building-fabric validation cases of ANSI/ASHRAE Standard 140-2020, section
5.2 (cases 600, 600FF, 900, 900FF and the diagnostic cases 195, 200, 210,
215, 220), in the program's own files.

    tools/bestest/make_bestest.py [system/tree/ZELMOPROJ]

The committed files are what ships; this script keeps them consistent with
one another and says where each number comes from. Run it again after a
change and commit what it writes. Every file is Windows-1252 text with CR LF
line ends, in the layouts the screens write (README, "The validation
project bestest").
"""

import os
import sys

# The climate file the site files point at before the project is activated:
# the program tree's Climate folder of a default Windows installation. File
# / Activate the demo project points them at the tree the program runs from.
CLIMATE_FILE = "DenverCO(US).CLI"
CLIMATE_PATH = "C:\\Zelmo\\Climate\\" + CLIMATE_FILE
# The simulated year: the dates of the climate file's header.
YEAR = "1995"

HERE = os.path.dirname(os.path.abspath(__file__))
SOURCE = os.path.normpath(os.path.join(HERE, "..", ".."))


def write(path, lines):
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "wb") as f:
        f.write("".join(line + "\r\n" for line in lines).encode("cp1252"))


def default_lines(name):
    with open(os.path.join(SOURCE, "system", "tree", "TGZELMO", name), "rb") as f:
        return f.read().decode("cp1252").split("\r\n")[:-1]


def jkg(value):
    """A specific heat in J/(kg K) as the library holds it, Wh/(kg K)."""
    return "%.4f" % (value / 3600.0)


# Materials of the cases behind the 47 of the default library: number, name,
# conductivity W/(m K), specific heat J/(kg K), density kg/m3.
MATERIALS = [
    (48, "Wood siding", "0.14", jkg(900), "530"),
    (49, "Fibreglass quilt", "0.04", jkg(840), "12"),
    (50, "Plasterboard", "0.16", jkg(840), "950"),
    (51, "Timber flooring", "0.14", jkg(1200), "650"),
    # The floor insulation has no thermal mass; the library takes nothing
    # below 0.01 for specific heat and density.
    (52, "Insulation massless", "0.04", "0.01", "0.01"),
    (53, "Foam insulation", "0.04", jkg(1400), "10"),
    (54, "Concrete block", "0.51", jkg(1000), "1400"),
    (55, "Concrete slab", "1.13", jkg(1000), "1400"),
    (56, "Panel high-cond.", "1.0", jkg(750), "2470"),
    # The air layer of the high-conductance element has a fixed resistance
    # of 0.192 m2 K/W: 12 mm of a conductivity 0.012 / 0.192 = 0.0625.
    (57, "Air layer R 0.192", "0.0625", jkg(1005), "1.0"),
]

# Constructions, outside (the element's front) first: number, name,
# [(material, thickness mm)].
WALLS = [
    (1, "Light wall", [(48, "9"), (49, "66"), (50, "12")]),
    (2, "Light roof", [(48, "19"), (49, "111.8"), (50, "10")]),
    (3, "Light floor", [(52, "1003"), (51, "25")]),
    (4, "Heavy wall", [(48, "9"), (53, "61.5"), (54, "100")]),
    (5, "Heavy floor", [(52, "1007"), (55, "80")]),
    (6, "High-cond. elem.", [(56, "3.048"), (57, "12"), (56, "3.048")]),
]

GLASS = "Bestest3mm"
# The pane as Fresnel glass: 3.048 mm with the refraction index and
# extinction coefficient that give the pane's solar transmittance 0.834 and
# reflectance 0.075 at normal incidence. With r = ((n - 1)/(n + 1))^2 the
# reflectance of one face and t = exp(-K d) the internal transmittance,
# T = (1 - r)^2 t / (1 - r^2 t^2) and R = r + r (1 - r)^2 t^2 / (1 - r^2 t^2)
# (the slab with multiple reflections) solved for r and t give r = 0.04267,
# t = 0.90863: n = 1.521, K = 31.4 1/m. The angle dependence then follows
# from the glazing model, as the reference programs had it.
GLASS_LINE = GLASS + "\t84\t84\t2\t3.048\t1.521\t31.4\t 0\t"
WINDOW_TYPE = 1


class Case:
    def __init__(self, name, headline, heavy=False, free_float=False, diagnostic=None):
        self.name = name
        self.headline = headline
        self.heavy = heavy
        self.free_float = free_float
        # Diagnostic cases: (interior emittance %, exterior emittance %,
        # openings filled by the high-conductance element).
        self.diagnostic = diagnostic


CASES = [
    Case("c600", "ASHRAE 140 case 600"),
    Case("c600ff", "ASHRAE 140 case 600FF", free_float=True),
    Case("c900", "ASHRAE 140 case 900", heavy=True),
    Case("c900ff", "ASHRAE 140 case 900FF", heavy=True, free_float=True),
    Case("c195", "ASHRAE 140 case 195", diagnostic=(10, 10, False)),
    Case("c200", "ASHRAE 140 case 200", diagnostic=(10, 10, True)),
    Case("c210", "ASHRAE 140 case 210", diagnostic=(10, 90, True)),
    Case("c215", "ASHRAE 140 case 215", diagnostic=(90, 10, True)),
    Case("c220", "ASHRAE 140 case 220", diagnostic=(90, 90, True)),
]


def element(name, shape, zenith, azimuth, x, y, z, dims, wall, surface, hole=None, leakage="0"):
    """One block of SURFACE.INP. `surface` is the main construction's
    (absorptance front, back, emittance front, back) in %, `hole` the hole's
    (construction, absorptance front, back, emittance front, back, window)."""
    fields = [str(shape), zenith, azimuth, x, y, z, "0", "1"]
    fields += (list(dims) + [""] * 6)[:6]
    fields += [str(wall)] + [str(v) for v in surface] + ["", ""]
    if hole:
        h_wall, h_abs_f, h_abs_b, h_emm_f, h_emm_b, h_window = hole
        fields += [h_wall, str(h_abs_f), str(h_abs_b), str(h_emm_f), str(h_emm_b), h_window, ""]
    else:
        fields += ["", "70", "70", "87", "87", "", ""]
    fields.append(leakage)
    assert len(fields) == 29
    return [name] + ["\t" + f for f in fields]


def surface_lines(case):
    wall, floor = (4, 5) if case.heavy else (1, 3)
    if case.diagnostic:
        emm_in, emm_out, filled = case.diagnostic
        opaque = (10, 60, emm_out, emm_in)
    else:
        emm_in, emm_out, filled = 90, 90, True
        opaque = (60, 60, 90, 90)
    # The raised floor's underside gets no sun: absorptance 0 outside.
    floor_surface = (0, opaque[1], opaque[2], opaque[3])
    if case.diagnostic:
        hole = ("6", 10, 60, emm_out, emm_in, "")
    else:
        hole = ("", 70, 70, 87, 87, str(WINDOW_TYPE))
    lines = []
    if case.diagnostic and not filled:
        lines += element("South wall", 0, "90", "180", "0", "0", "0", ["8", "2.7"], wall, opaque)
    else:
        # Each half of the south wall holds one of the two 3 m by 2 m
        # openings, 0.2 m above the floor, 0.5 m from the side wall.
        for name, x in (("South wall W", "0"), ("South wall E", "4")):
            lines += element(name, 2, "90", "180", x, "0", "0",
                             ["4", "2.7", "0.2", "0.5", "2.2", "3.5"], wall, opaque, hole)
    lines += element("East wall", 0, "90", "90", "8", "0", "0", ["6", "2.7"], wall, opaque)
    lines += element("North wall", 0, "90", "0", "8", "6", "0", ["8", "2.7"], wall, opaque)
    lines += element("West wall", 0, "90", "270", "0", "6", "0", ["6", "2.7"], wall, opaque)
    lines += element("Roof", 0, "0", "0", "0", "0", "2.7", ["8", "6"], 2, opaque)
    lines += element("Floor", 0, "180", "0", "0", "6", "0", ["8", "6"], floor, floor_surface)
    return lines


def hour_line(hour, cells, trailing_tab):
    return "%d\t%d\t" % (hour, hour) + "\t".join(cells) + ("\t" if trailing_tab else "")


def hvac_lines(case):
    """HVAC_Cal.Inp: one schedule, volume 1 on one Monthly period from
    January to December, the same 24 hours every day."""
    if case.diagnostic:
        heating, cooling, loads, flow = "20", "20", "", ""
    else:
        heating, cooling = ("", "") if case.free_float else ("20", "27")
        # 200 W of internal gains; 0.5 air changes of the 129.6 m3 are
        # 64.8 m3/h = 18 l/s of outdoor air in and out.
        loads, flow = "200", "18"
    cells = ["", heating, "", cooling, loads, flow, flow, ""] + [""] * 28
    blank = [" "] * 36
    lines = ["0\t0\t85\t0\t", "\t", " 1\t 1\t 1"]
    for schedule in range(1, 5):
        lines.append("Thermostat" if schedule == 1 else "Default_schedule-%d" % schedule)
        for volume in range(1, 9):
            if schedule == 1 and volume == 1:
                lines += [" 2\t1E+20\t1E+20", " 1 ", "1\t12", "24"]
                lines += [hour_line(h, cells, False) for h in range(1, 25)]
            else:
                lines += [" 0\t1E+20\t1E+20", "2"]
                for start, end in (("1/1", "30/6"), ("1/7", "31/12")):
                    lines += [start + "\t" + end, "24"]
                    lines += [hour_line(h, blank, True) for h in range(1, 25)]
    return lines


def site_lines():
    # Denver International Airport: 39.83 N, 104.65 W, UTC-7 (meridian
    # 105 W), the building's axes on the compass points.
    return ["39.83\t 0\t 0\t", "-104.65", "-105", "0", CLIMATE_PATH,
            YEAR, "1", "1", YEAR, "12", "31", "0", "0", "-1000"]


def genpars_lines():
    # External long-wave exchange computed; exterior convective coefficient
    # 17.0 W/(m2 K): the standard's combined 21.6 of a wall less the
    # linearised long-wave part 4 e s Tm^3 = 4.6 (e 0.9, Tm 283 K); interior
    # coefficient calculated; the first day 20 times before the year.
    return ["Y", "20", "1.87", "17.0", "-1", "20", "Y"]


def main():
    root = sys.argv[1] if len(sys.argv) > 1 else os.path.join(SOURCE, "system", "tree", "ZELMOPROJ")
    project = os.path.join(root, "bestest")
    write(os.path.join(project, "CASES.LIB"), ["%s - %s" % (c.name, c.headline) for c in CASES])
    write(os.path.join(project, "OPAQUE.LIB"), default_lines("OPAQUE.LIB") +
          ["\t".join(str(v) for v in m) for m in MATERIALS])
    walls = []
    for number, name, layers in WALLS:
        walls.append("%d\t%s" % (number, name))
        walls += ["\t%d\t%s" % layer for layer in layers]
    write(os.path.join(project, "WALLS.LIB"), walls)
    write(os.path.join(project, "GLASSTP.INP"), default_lines("GLASSTP.INP") +
          [GLASS_LINE] + ["\t" * 12] * 3)
    write(os.path.join(project, "GASTP.INP"), default_lines("GASTP.INP"))
    write(os.path.join(project, "WNDTP.LIB"),
          ["%d\tBestestDouble\t 2\t%s\tNo\t12\tAir\t%s\tNo" % (WINDOW_TYPE, GLASS, GLASS) + "\t" * 12])
    for case in CASES:
        folder = os.path.join(project, case.name)
        write(os.path.join(folder, "THERMAL.INP"), ["XXXXXX"])
        write(os.path.join(folder, "SURFACE.INP"), surface_lines(case))
        write(os.path.join(folder, "Site.inp"), site_lines())
        write(os.path.join(folder, "GENPARS.INP"), genpars_lines())
        write(os.path.join(folder, "OUTPUT.INP"), ["2", " 0 ", " 0 ", "1\t-1\t-1\t-1\t0\t0\t0\t0\t"])
        write(os.path.join(folder, "FLUIDS.INP"), ["1\t1"])
        write(os.path.join(folder, "ADVCONN.INP"), [])
        write(os.path.join(folder, "MISCHED.INP"),
              ["%d\t0\t%s" % (m, "0" * 24) for m in range(1, 13)])
        write(os.path.join(folder, "HVAC_Cal.Inp"), hvac_lines(case))


if __name__ == "__main__":
    main()
