"""check_json.py SCHEMA DOCUMENT...: documents of runs against their schema."""

import json
import sys

import jsonschema

checker = jsonschema.Draft7Validator(json.load(open(sys.argv[1], encoding="utf-8")))
checker.check_schema(checker.schema)
faulty = 0
for name in sys.argv[2:]:
    document = json.load(open(name, encoding="utf-8"))
    for error in checker.iter_errors(document):
        faulty += 1
        print(f"{name}: {'/'.join(map(str, error.absolute_path))}: {error.message[:300]}")
    for member in document["members"]:
        ends = {}
        for feature in member["features"]:
            if "account" in feature:
                ends[feature["account"]] = ends.get(feature["account"], 0) + 1
        if ends != {account: count for account, count in member["accounts"].items() if count}:
            faulty += 1
            print(f"{name}: {member['mark']}: the accounts of the features are {ends}")
print(f"{len(sys.argv) - 2} documents, {faulty} complaints")
sys.exit(1 if faulty else 0)
