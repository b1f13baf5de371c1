#!/usr/bin/python3
"""Checks the JSON output of scvsched, and the samples in docs/scvsched.md, against the schemas in docs/schema.

    SCV_ARCH=x86 SCV_BUILD=build/windows-x86 tests/cli/test_schemas.py
"""

import json
import os
import re
import sys
import unittest
from pathlib import Path

import jsonschema

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tests/journeys"))

from wine import Wine  # noqa: E402

ARCH = os.environ.get("SCV_ARCH", "x64")
BUILD = Path(os.environ.get("SCV_BUILD", ROOT / f"build/windows-{ARCH}"))
SCHEMAS = {path.stem: json.loads(path.read_text()) for path in (ROOT / "docs/schema").glob("*.json")}


def strict(schema):
    """Returns the schema with unknown keys forbidden: readers must accept them, but here they would be undocumented."""
    if isinstance(schema, list):
        return [strict(part) for part in schema]
    if not isinstance(schema, dict):
        return schema
    closed = {key: strict(part) for key, part in schema.items()}
    return closed | {"additionalProperties": False} if isinstance(schema.get("properties"), dict) else closed


def validate(document, name):
    store = {f"{stem}.json": strict(schema) for stem, schema in SCHEMAS.items()}
    resolver = jsonschema.RefResolver(f"{name}.json", store[f"{name}.json"], store)
    jsonschema.Draft202012Validator(store[f"{name}.json"], resolver=resolver).validate(document)


class Schemas(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.wine = Wine(ARCH, "schemas")

    def scvsched(self, *words):
        status, text = self.wine.run(BUILD / "cli/scvsched.exe", "--list", "C:\\schemas.ini", *words)
        self.assertIn(status, (0, 1), text)
        # Warnings follow the JSON, because standard error goes to the same output.
        return json.JSONDecoder().raw_decode(text)[0]

    def setUp(self):
        (self.wine.drive_c / "schemas.ini").unlink(missing_ok=True)
        for name in ("a", "b"):
            (self.wine.drive_c / f"{name}.scvpr").write_text("")

    def test_outputs(self):
        full = ["--days", "mon,wed", "--every", "2h", "--until", "18:00", "--monthly", "--add-urls", "C:\\u.csv", "--exit",
                "--import-values", "C:\\v.csv", "--element-id", "i", "--export-results", "--export-file", "C:\\o.csv"]
        for schema, words in [
            ("changes", ["add", "C:\\a.scvpr", "--start", "2030-03-04T08:00", *full]),
            ("changes", ["add", "C:\\b.scvpr", "--start", "2020-03-04"]),
            ("changes", ["pass"]),
            ("changes", ["set", "a*", "--no-exit", "--dry-run"]),
            ("list", ["list"]),
            ("next", ["next", "--count", "3"]),
            ("runs", ["next", "--to", "2030-03-12"]),
            ("week", ["next", "--week", "--at", "2030-03-04"]),
            ("check", ["check"]),
            ("export", ["export"]),
            ("changes", ["remove", "b*"]),
        ]:
            with self.subTest(words[0], words=words):
                document = self.scvsched(*words, "--json")
                validate(document, schema)
                for change in document.get("changes", []):
                    validate(change, "launch")

    def test_samples(self):
        page = (ROOT / "docs/scvsched.md").read_text()
        samples = [json.loads(text) for text in re.findall(r"^```json\n(.*?)^```", page, re.M | re.S)]
        keys = {"tasks": "list", "changes": "changes", "findings": "check", "runs": "runs"}
        seen = set()
        for sample in samples:
            if "now" in sample:  # not the sample for import
                name = next(schema for key, schema in keys.items() if key in sample)
                validate(sample, name)
                seen.add(name)
        self.assertEqual(seen, set(keys.values()), "a sample is missing")

    def test_schemas_refuse(self):
        """The schemas reject wrong documents."""
        for wrong in ({"version": 2, "tasks": []}, {"version": 1, "tasks": [], "more": 1}):
            with self.subTest(wrong=wrong), self.assertRaises(jsonschema.ValidationError):
                validate(wrong, "export")
        validate({"version": 1, "tasks": []}, "export")


if __name__ == "__main__":
    unittest.main()
