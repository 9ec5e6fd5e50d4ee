"""Every command with --format json and csv against its own text report.

For each case of CASES the text, JSON and CSV forms are run on the same data:
sample files from `oproc sample` and hostile files written here (a NaN record,
an empty replication, one observation, a large offset). A run that succeeds
must give JSON whose numbers equal the report's to the digits the report
prints, and CSV rows equal to the JSON's; a run that ends in a message must
still give JSON that parses, holding that message as its error, and no CSV.
"""
import csv
import io
import json
import math
import os
import re
import struct
import subprocess
import sys
import tempfile

OPROC = os.path.abspath(sys.argv[1])
failures = []


def fail(case, what):
    failures.append(f"{' '.join(case)}: {what}")


# ---- data ------------------------------------------------------------------

def tally_file(name, records, count=1):
    head = ("203 \r\n" + "Output file for:%-24.24s by:%-24.24s \r\n" % ("sample", "TEST WRITER")
            + "Data for:hand made\r\n" + "Run date:%-10.10sND     %7d\r\n" % ("Tally", count)
            + "File Version: \x07QUILLSTATFMT\r\n\x1a")
    with open(name, "wb") as f:
        f.write(head.encode("latin-1"))
        for t, v in records:
            f.write(struct.pack("<dd", t, v))


def obs(values):
    return [(1.0 + i, float(v)) for i, v in enumerate(values)]


END, REP_END = [(-1.0, -1.0)], [(-1.0, 0.0)]


def make_data():
    subprocess.run([OPROC, "sample", "."], check=True, stdout=subprocess.DEVNULL)
    tally_file("nan.dat", obs([1, 2, math.nan, 4, 5]) + END)
    # Replication 2 is empty, replication 3 holds one observation.
    tally_file("reps.dat", obs(range(1, 11)) + REP_END + REP_END + obs([7]) + END, 3)
    tally_file("one.dat", obs([3]) + END)
    tally_file("noend.dat", obs([1, 2, 3]))
    subprocess.run([OPROC, "group", "new", "g.dgr"], check=True)
    subprocess.run([OPROC, "group", "add", "g.dgr", "waits.dat", "reps.dat", "noend.dat"], check=True,
                   stdout=subprocess.DEVNULL)
    tally_file("offset.dat", obs([1e9 + x for x in (1, 2, 3, 4, 5, 6, 7, 9, 8, 10, 12, 11)]) + END)


# ---- number matching -------------------------------------------------------

NUMBER = re.compile(r"^[-+]?(\d+\.?\d*|\.\d+)([eE][-+]?\d+)?%?$|^[-+]?(nan|inf)%?$", re.I)


def is_number(token):
    return bool(NUMBER.match(token))


def agrees(token, value):
    """Whether value printed as the report prints token gives token: equal to
    within half a unit of the token's last digit; NaN and infinity are null."""
    token = token.rstrip("%")
    if token.lower().lstrip("+-") in ("nan", "inf"):
        return value is None
    if value is None or isinstance(value, bool):
        return False
    mantissa, _, exponent = token.lower().partition("e")
    decimals = len(mantissa.partition(".")[2])
    unit = 10.0 ** (int(exponent or 0) - decimals)
    return abs(value - float(token)) <= 0.5 * unit * (1 + 1e-9) + 1e-300


def compare(case, where, tokens, obj, keys):
    if len(tokens) < len(keys):
        fail(case, f"{where}: {len(tokens)} numbers for {keys}")
        return
    for token, key in zip(tokens[-len(keys):], keys):
        if key not in obj:
            fail(case, f"{where}: no key {key}")
        elif not agrees(token, obj[key]):
            fail(case, f"{where}: {key} is {obj[key]!r}, the report prints {token}")


def numbers(line):
    return [t for t in line.split() if is_number(t)]


def labelled(text):
    """The report's "label : value" lines."""
    out = {}
    for line in text.splitlines():
        label, colon, value = line.partition(" :")
        if colon and value.split() and is_number(value.split()[0]):
            out[label.strip()] = value.split()[0]
    return out


def check_labels(case, text, obj, labels):
    found = labelled(text)
    for label, key in labels.items():
        if label in found:
            compare(case, label, [found[label]], obj, [key])
    for key in set(labels.values()):
        if obj.get(key) is not None and not any(found.get(l) for l, k in labels.items() if k == key):
            fail(case, f"the report shows no {key}")


# ---- the reports, command by command ---------------------------------------

def data_lines(text):
    """Lines of a fixed-column table: an identifier, then numbers ending in a count."""
    lines = text.splitlines()
    return [(i, l) for i, l in enumerate(lines)
            if l[:1].strip() and len(numbers(l)) >= 3 and re.match(r"^\d+$", l.split()[-1])]


def rows(keys):
    def check(case, text, res):
        entries = res["entries"]
        found = data_lines(text)
        if len(found) != len(entries):
            fail(case, f"{len(found)} report lines, {len(entries)} entries")
        for (_, line), entry in zip(found, entries):
            compare(case, entry["identifier"], numbers(line), entry, keys)
    return check


def pairs(keys_a, keys_b):
    def check(case, text, res):
        lines = text.splitlines()
        found = data_lines(text)
        if len(found) != len(res["pairs"]):
            fail(case, f"{len(found)} report pairs, {len(res['pairs'])} in JSON")
        for (i, line), pair in zip(found, res["pairs"]):
            compare(case, "line of A", numbers(line), pair, keys_a)
            compare(case, "line of B", numbers(lines[i + 1]), pair, keys_b)
            verdict = next(l for l in lines[i + 2:] if "H0" in l)
            if ("FAIL TO REJECT" not in verdict) != pair["equal_rejected"]:
                fail(case, f"equal_rejected {pair['equal_rejected']} against {verdict.strip()!r}")
    return check


def check_batch(case, text, res):
    check_labels(case, text, res, {
        "Initial Observations Truncated": "truncated",
        "Initial Time Truncated": "truncated",
        "Number of Batches": "batches",
        "Number of Observations Per Batch": "batch_size",
        "Time Spanned Per Batch": "batch_size",
        "Trailing Time Truncated": "trailing_time",
        "Number of Trailing Obs'ns Truncated": "trailing_observations",
        "Estimate of Covariance Between Batches": "covariance_estimate",
    })
    if ("Covariance > 0" in text) != (res["rejected"] == "positive"):
        fail(case, f"rejected is {res['rejected']!r}")
    if len(res["batch_means"]) != res["batches"]:
        fail(case, f"{len(res['batch_means'])} batch means for {res['batches']} batches")


def check_correlogram(case, text, res):
    check_labels(case, text, res, {"Sample Mean": "mean", "Sample Variance": "variance",
                                   "Sample Size": "n", "Weighted Sum of Cov.": "weighted_sum"})
    lags = [numbers(l) for l in text.splitlines() if re.match(r"^ +\d+ +\S+ +\S+$", l)]
    if len(lags) != len(res["lags"]):
        fail(case, f"{len(lags)} lag lines, {len(res['lags'])} lags")
    for tokens, lag in zip(lags, res["lags"]):
        compare(case, f"lag {lag['lag']}", tokens, lag, ["lag", "covariance", "correlation"])


def check_anova(case, text, res):
    lines = text.splitlines()
    groups = [l for l in lines if re.match(r"^ +\d+ \S", l) and " - " not in l]
    for line, group in zip(groups, res["groups"]):
        compare(case, f"group {group['identifier']}", numbers(line), group, ["n", "mean", "sd"])
    if len(groups) != len(res["groups"]):
        fail(case, f"{len(groups)} group lines, {len(res['groups'])} groups")
    anova = res["anova"]
    welch = anova.get("welch")
    for line in lines:
        if line.startswith("Between"):
            keys = ["df_between", "ss_between", "ms_between"] + ([] if welch else ["f"])
            compare(case, "Between", numbers(line), anova, keys)
        if line.startswith("Within"):
            compare(case, "Within", numbers(line), anova, ["df_within", "ss_within", "ms_within"])
    found = labelled(text)
    compare(case, "F", [found.get("F", "")], anova, ["f"])
    compare(case, "P-value", [found.get("P-value", "")], anova, ["p_value"])
    critical = [v for k, v in found.items() if k.startswith("Critical F")]
    compare(case, "critical F", critical, anova, ["f_critical"])
    if welch:
        compare(case, "Welch", [found.get("Denominator DF", "")], welch, ["df_within"])
        compare(case, "Welch", [found.get("Denominator DF used", "")], welch, ["df_within_used"])
    pair_lines = [l for l in lines if re.match(r"^ +\d+ - +\d+ ", l)]
    comparisons = res["comparisons"]
    if len(pair_lines) != len(comparisons):
        fail(case, f"{len(pair_lines)} comparison lines, {len(comparisons)} comparisons")
    for line, c in zip(pair_lines, comparisons):
        i, j = (int(x) for x in re.findall(r"\d+", line)[:2])
        if (i, j) != (c["i"], c["j"]):
            fail(case, f"pair {i} - {j} against {c['i']} - {c['j']}")
        keys = ["difference", "lower", "upper"] + (["df", "q"] if c["method"] == "games-howell" else [])
        compare(case, f"{c['method']} {i} - {j}", numbers(line)[2:2 + len(keys)], c, keys)
        if line.rstrip().endswith("*") != c["significant"]:
            fail(case, f"{c['method']} {i} - {j}: significant is {c['significant']}")


def check_info(case, text, res):
    counts = [int(n) for n in re.findall(r"replication +\d+: +(\d+) observations", text)]
    listed = [r["observations"] for f in res["files"] for r in f["per_replication"]]
    if counts != listed:
        fail(case, f"observations {listed} against the report's {counts}")
    for f in res["files"]:
        if f["file"] not in text:
            fail(case, f"{f['file']} not in the report")


def check_group(case, text, res):
    lines = [l.split(None, 1)[1] for l in text.splitlines() if l.startswith("#")]
    if lines != [f["line"] for f in res["files"]]:
        fail(case, "the files' lines differ from the listing")


CHECKS = {
    "info": check_info,
    "group": check_group,
    "interval": rows(["mean", "sd", "half_width", "min", "max", "n"]),
    "sdinterval": rows(["sd", "lower", "upper", "range", "n"]),
    "stdinterval": rows(["mean", "sd", "half_width", "min", "max", "n"]),
    "compare": pairs(["difference", "sd", "half_width", "min_a", "max_a", "n_a"], ["min_b", "max_b", "n_b"]),
    "vartest": pairs(["ratio", "lower", "upper", "min_a", "max_a", "n_a"], ["min_b", "max_b", "n_b"]),
    "batch": check_batch,
    "correlogram": check_correlogram,
    "anova": check_anova,
}

OBS = ["--batch-type", "Observation"]
CASES = [
    ["info", "waits.dat", "reps.dat", "noend.dat"],
    ["info", "reps.dat", "missing.dat"],
    ["group", "list", "g.dgr"],
    ["group", "list", "missing.dgr"],
    ["interval", "waits.dat@All", "meanwait.dat@Lumped"],
    ["interval", "nan.dat", "one.dat", "reps.dat@1", "offset.dat"],
    ["interval", "reps.dat@All"],
    ["interval", "missing.dat"],
    ["sdinterval", "--level", "90", "waits.dat@All", "one.dat", "nan.dat"],
    ["stdinterval", "waits.dat@All", "offset.dat"],
    ["stdinterval", "one.dat"],
    ["compare", "waits.dat@All", "waits.dat@All"],
    ["compare", "--method", "two-sample", "one.dat", "reps.dat@1", "nan.dat", "offset.dat"],
    ["compare", "waits.dat@1", "queue.dat@1"],
    ["vartest", "waits.dat@1", "waits.dat@2", "reps.dat@1", "nan.dat"],
    ["vartest", "one.dat", "reps.dat@1"],
    ["batch", "waits.dat", *OBS, "--batch-size", "40", "--trunc", "100"],
    ["batch", "queue.dat", "--reps", "All", "--batch-type", "Time", "--batch-size", "100"],
    ["batch", "reps.dat", "--reps", "1", *OBS, "--batch-size", "1"],
    ["batch", "one.dat", *OBS, "--batch-size", "1"],
    ["correlogram", "--max-lags", "4", "waits.dat"],
    ["correlogram", "--max-lags", "3", "--reps", "All", "waits.dat"],
    ["correlogram", "--max-lags", "2", "nan.dat"],
    ["correlogram", "--max-lags", "2", "one.dat"],
    ["anova", "waits.dat@1", "waits.dat@2", "waits.dat@3"],
    ["anova", "one.dat", "reps.dat@1", "offset.dat"],
    ["anova", "--unequal-variances", "waits.dat@1", "waits.dat@2"],
    ["anova", "one.dat"],
]


def run(case, form):
    p = subprocess.run([OPROC, *case, "--format", form], capture_output=True, text=True)
    return p.returncode, p.stdout, p.stderr


def check_case(case):
    status, text, err = run(case, "text")
    if status == 0 and run(case[:1] + case[1:], "text")[1] != text:
        fail(case, "text report differs between runs")
    jstatus, jout, jerr = run(case, "json")
    if (jstatus, jerr) != (status, err):
        fail(case, f"JSON run: status {jstatus} and stderr {jerr!r}, text run: {status} and {err!r}")
    try:
        doc = json.loads(jout)
    except ValueError as e:
        fail(case, f"JSON does not parse: {e}")
        return
    if doc.get("command") != " ".join(case[:2] if case[0] == "group" else case[:1]):
        fail(case, f"command is {doc.get('command')!r}")
    cstatus, cout, _ = run(case, "csv")
    if status != 0:
        messages = err.strip()
        error = doc.get("error", {})
        if not isinstance(error.get("id"), int) or error.get("text", "").strip() not in messages:
            fail(case, f"error {error!r} against stderr {messages!r}")
        if cout:
            fail(case, "CSV written for a failing run")
        return
    CHECKS[case[0]](case, text, doc["results"])
    table = list(csv.DictReader(io.StringIO(cout, newline="")))
    expected = {"info": "files", "group": "files", "interval": "entries", "sdinterval": "entries", "stdinterval": "entries", "compare": "pairs",
                "vartest": "pairs", "anova": "comparisons"}.get(case[0])
    if expected:
        if len(table) != len(doc["results"][expected]):
            fail(case, f"{len(table)} CSV rows for {len(doc['results'][expected])} in JSON")
        for row, obj in zip(table, doc["results"][expected]):
            for key, value in obj.items():
                if isinstance(value, float) and float(row[key] or "nan") != value and value == value:
                    fail(case, f"CSV {key} {row[key]} against JSON {value!r}")


def main():
    with tempfile.TemporaryDirectory() as work:
        os.chdir(work)
        make_data()
        for case in CASES:
            check_case(case)
    for f in failures:
        print("FAIL:", f)
    return 1 if failures else 0


sys.exit(main())
