#!/usr/bin/env python3
"""truths.py VALUE_OBJECT [--tool-alone]: asks the tool, and other programs where they are installed, the questions of
docs/measurement.md, and prints the answers as its table. Fails where the tool's differ from those in the document.
"""
import pathlib
import shlex
import shutil
import subprocess
import sys

TOOL = sys.argv[1]
TOOL_ALONE = "--tool-alone" in sys.argv
DOCUMENT = pathlib.Path(__file__).resolve().parent.parent / "docs" / "measurement.md"

# The question, the tool's arguments, and how units, qalc and pint are asked; None where they have no way to.
QUESTIONS = [
    ("20 dBV to V", "convert '20 dBV' V", None, "20 dBV to V", None),
    ("107 dBuV to mV", "convert '107 dBuV' mV", None, None, "Q(107, 'decibelmicrovolt').to('mV')"),
    ("10 dBm + 3 dB", "compute '10 dBm + 3 dB'", None, None, "Q(10, 'dBm') + Q(3, 'dB')"),
    ("10 dBm + 10 dBm", "compute '10 dBm + 10 dBm'", None, "10 dBm + 10 dBm", "Q(10, 'dBm') + Q(10, 'dBm')"),
    ("-174 dBm/Hz * 1 MHz", "compute '-174 dBm/Hz * 1 MHz'", None, None, None),
    ("30 dBm to W", "convert '30 dBm' W", ("dBm(30)", "W"), "30 dBm to W", "Q(30, 'dBm').to('W')"),
    ("70 dBuV [69, 71] to dBm with 50 ± 2.5 ohm", "convert '70 dBuV [69, 71]' dBm --with '50 ± 2.5 ohm'", None, None, None),
    ("10 ± 0.1 V to W with 50 ± 1 ohm", "convert '10 ± 0.1 V' W --with '50 ± 1 ohm'", None, "(10+/-0.1)^2 V^2/((50+/-1) ohm) to W",
     "(Q(10, 'V').plus_minus(0.1) ** 2 / Q(50, 'ohm').plus_minus(1)).to('W')"),
    ("0 ± 1 V * 0 ± 1 A", "compute '0 ± 1 V * 0 ± 1 A'", None, "(0+/-1) V * (0+/-1) A", None),
    ("5 V [4, 6] - 5 V [4, 6]", "compute '5 V [4, 6] - 5 V [4, 6]'", None, None, None),
    ("6 V / 2 A [-1, 4]", "compute '6 V / 2 A [-1, 4]'", None, None, None),
    ("60 mph * 2 s to m", "compute '60 mph * 2 s' --to m", ("60 mph * 2 s", "m"), "60 mph * 2 s to m", "(Q(60, 'mph') * Q(2, 's')).to('m')"),
    ("500 km / 450 kn to min", "compute '500 km / 450 kn' --to min", ("500 km / 450 knots", "min"), "500 km / (450 knot) to min",
     "(Q(500, 'km') / Q(450, 'knot')).to('min')"),
    ("1 GB / 100 Mbps to s", "compute '1 GB / 100 Mbps' --to s", ("1 gigabyte / (100 megabit/s)", "s"), "1 GB / (100 Mbit/s) to s",
     "(Q(1, 'gigabyte') / Q(100, 'megabit/s')).to('s')"),
    ("98.6 degF to degC", "convert '98.6 degF' degC", ("tempF(98.6)", "tempC"), "98.6 oF to oC", "Q(98.6, 'degF').to('degC')"),
    ("20 degC - 10 degC", "compute '20 degC - 10 degC'", None, "20 oC - 10 oC", "Q(20, 'degC') - Q(10, 'degC')"),
    ("20 degC + 10 degC", "compute '20 degC + 10 degC'", None, "20 oC + 10 oC", "Q(20, 'degC') + Q(10, 'degC')"),
    ("10 degC/min * 5 min", "compute '10 degC/min * 5 min'", None, "10 oC/min * 5 min", "Q(10, 'degC/min') * Q(5, 'min')"),
    ("10 ppm/K to ppm/degC", "convert '10 ppm/K' ppm/degC", ("10 ppm/K", "ppm/degC"), None, "Q(10, '1e-6/K').to('1e-6/delta_degC')"),
    ("1 mi to m", "convert '1 mi' m", ("1 mile", "m"), "1 mi to m", "Q(1, 'mile').to('m')"),
    ("180 deg to rad", "convert '180 deg' rad", ("180 degree", "radian"), "180 deg to rad", "Q(180, 'deg').to('rad')"),
    ("5 m to m/s", "convert '5 m' m/s", ("5 m", "m/s"), "5 m to m/s", "Q(5, 'm').to('m/s')"),
    ("1 mo to dy", "convert '1 mo' dy", ("1 month", "day"), "1 month to d", "Q(1, 'month').to('day')"),
    ("12 V / 3 ohm to A", "compute '12 V / 3 ohm' --to A", ("12 V / 3 ohm", "A"), "12 V / (3 ohm) to A", "(Q(12, 'V') / Q(3, 'ohm')).to('A')"),
    ("1013.25 hPa to inHg", "convert '1013.25 hPa' inHg", ("1013.25 hPa", "inHg"), None, None),
    ("30 psi to bar", "convert '30 psi' bar", ("30 psi", "bar"), None, None),
    ("5 lb/gal to kg/l", "convert '5 lb/gal' kg/l", ("5 lb/gal", "kg/l"), None, None),
    ("3000 rpm * 2 N*m to kW", "compute '3000 rpm * 2 N*m' --to kW", ("3000 rpm * 2 N m", "kW"), None, None),
    ("12 µT to mG", "convert '12 µT' mG", ("12 uT", "mgauss"), None, None),
    ("100 pF * 10 kohm to µs", "compute '100 pF * 10 kohm' --to µs", ("100 pF * 10 kohm", "us"), None, None),
    ("2500 kg/h * 3.5 h to t", "compute '2500 kg/h * 3.5 h' --to t", ("2500 kg/hr * 3.5 hr", "tonne"), None, None),
    ("1 eV to J", "convert '1 eV' J", ("1 eV", "J"), None, None),
    ("70 kg * 9.81 m/s^2 to N", "compute '70 kg * 9.81 m/s^2' --to N", ("70 kg * 9.81 m/s^2", "N"), None, None),
    ("60 dBµV/m to dBµA/m with 377 ohm", "convert '60 dBµV/m' dBµA/m --with '377 ohm'", None, None, None),
    ("50 dBµV + 20 dB(1/m)", "compute '50 dBµV + 20 dB(1/m)'", None, None, None),
    ("1 Np to dB", "convert '1 Np' dB", None, None, None),
    ("20 dBm == 100 mW", "compute '20 dBm == 100 mW'", None, None, None),
    ("30 dBm [29, 33] < 32 dBm", "compute '30 dBm [29, 33] < 32 dBm'", None, None, None),
]

PINT = """
import sys, textwrap, warnings
warnings.simplefilter("ignore")
import pint
registry = pint.UnitRegistry(autoconvert_offset_to_baseunit=False)
Q = registry.Quantity
try:
    print(f"{eval(sys.argv[1]):.6g~P}")
except Exception as failure:
    print("refused:", textwrap.shorten(str(failure).split(chr(10))[0], 60, placeholder=" ..."))
"""


def output(command):
    done = subprocess.run(command, capture_output=True, text=True, check=False, timeout=60)
    text = (done.stdout or done.stderr).strip().splitlines()
    return text[0].strip() if text else ""


def ours(arguments):
    """As the library has it, whose functions the tool calls by its options."""
    answer = output([TOOL, *shlex.split(arguments)])
    return "refused: " + answer.split(": ", 2)[2] if answer.startswith("value-object: ") else answer


def others(asked_of_units, asked_of_qalc, asked_of_pint):
    answers = []
    if TOOL_ALONE:
        return ""
    if asked_of_units and shutil.which("units"):
        answers.append("units: " + output(["units", "--terse", "--digits", "6", *asked_of_units]))
    if asked_of_qalc and shutil.which("qalc"):
        answers.append("qalc: " + output(["qalc", "-t", asked_of_qalc]))
    if asked_of_pint and subprocess.run(["/usr/bin/python3", "-c", "import pint"], capture_output=True, check=False).returncode == 0:
        answers.append("pint: " + output(["/usr/bin/python3", "-c", PINT, asked_of_pint]))
    return "; ".join(answers).replace("|", "\\|")


def main():
    document = DOCUMENT.read_text(encoding="utf-8")
    wrong = 0
    for question, arguments, *asked in QUESTIONS:
        answer = ours(arguments)
        print(f"| {question} | {answer} | {others(*asked)} |")
        if f"| {question} | {answer} |" not in document:
            wrong += 1
            print(f"truths.py: the document has another answer to: {question}", file=sys.stderr)
    sys.exit(wrong > 0)


main()
