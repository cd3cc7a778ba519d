#!/usr/bin/env python3
"""Validates the sample documents against the schema that zeltcfg prints.

Every sample that the library reads must be valid; each invalid-*.json
sample must fail, and among its schema errors there must be one at the
member where the library fails, as "zeltcfg check" names it.

    validate_samples.py EXAMPLES_DIR WORK_DIR ZELTCFG...

ZELTCFG is the command that runs the tool, with its emulator if it needs one.
"""
import json
import pathlib
import re
import shutil
import subprocess
import sys

import jsonschema


def pointer(parts):
    return "".join("/" + str(p).replace("~", "~0").replace("/", "~1") for p in parts)


def error_places(validator, document):
    """The JSON Pointers of the members each schema error is about."""
    places = set()
    for error in validator.iter_errors(document):
        base = list(error.absolute_path)
        if error.validator == "required":
            for key in error.validator_value:
                if isinstance(error.instance, dict) and key not in error.instance:
                    places.add(pointer(base + [key]))
        else:
            places.add(pointer(base))
    return places


def library_failure(zeltcfg, sample, work):
    """The member that "zeltcfg check" reports for a private copy of sample."""
    copy = work / sample.name
    shutil.copyfile(sample, copy)
    run = subprocess.run([*zeltcfg, "check", copy.name], cwd=work, capture_output=True, text=True)
    if run.returncode != 1:
        raise SystemExit(f"{sample.name}: zeltcfg check exited {run.returncode}, not 1")
    match = re.match(r"[^:]+:\d+:\d+: (\S+): ", run.stderr)
    if not match:
        raise SystemExit(f"{sample.name}: no failing member in:\n{run.stderr}")
    return match.group(1)


def main():
    examples, work, zeltcfg = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2]), sys.argv[3:]
    shutil.rmtree(work, ignore_errors=True)
    work.mkdir(parents=True)
    schema = json.loads(subprocess.run([*zeltcfg, "schema"], check=True, capture_output=True,
                                       text=True).stdout)
    jsonschema.Draft202012Validator.check_schema(schema)
    validator = jsonschema.Draft202012Validator(schema)
    failures = []
    samples = sorted(examples.glob("*.json"))
    for sample in samples:
        document = json.loads(sample.read_text(encoding="utf-8"))
        places = error_places(validator, document)
        if not sample.name.startswith("invalid-"):
            if places:
                failures.append(f"{sample.name}: valid sample fails the schema at {sorted(places)}")
            continue
        expected = library_failure(zeltcfg, sample, work)
        if expected not in places:
            failures.append(f"{sample.name}: the library fails at {expected}, "
                            f"the schema at {sorted(places) or 'nothing'}")
    for failure in failures:
        print(failure, file=sys.stderr)
    print(f"{len(samples)} samples checked, {len(failures)} failures")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
