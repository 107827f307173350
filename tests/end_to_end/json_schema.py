"""Holds documents against a JSON schema, as much of that language as the project's schema needs. A
keyword that is not known here is an error, not something to pass over."""

import json
import re

TYPES = {"object": dict, "array": list, "string": str, "boolean": bool, "integer": int,
         "number": (int, float)}
SAYS_NOTHING = {"$schema", "$defs", "title", "description"}


class Schema:
    def __init__(self, path):
        self.whole = json.loads(path.read_text(encoding="utf-8"))

    def fault(self, document):
        """What is wrong with a document, in words; nothing when the schema allows it."""
        return self._fault(document, self.whole, "the document")

    def _fault(self, value, schema, place):
        for keyword, wanted in schema.items():
            if keyword in SAYS_NOTHING:
                continue
            check = getattr(self, "_" + re.sub(r"\W", "", keyword), None)
            if check is None:
                raise ValueError(f"the schema has the keyword {keyword}, which is not known here")
            fault = check(value, wanted, place, schema)
            if fault:
                return fault
        return None

    def _ref(self, value, wanted, place, _):
        return self._fault(value, self.whole["$defs"][wanted.removeprefix("#/$defs/")], place)

    def _oneOf(self, value, wanted, place, _):
        faults = [self._fault(value, each, place) for each in wanted]
        if faults.count(None) == 1:
            return None
        # The one that has the same command tells most.
        command = value.get("command", "failure") if isinstance(value, dict) else None
        told = next((fault for each, fault in zip(wanted, faults)
                     if fault and each.get("$ref", "").endswith(f"/{command}")), None)
        return told or f"{place} is of {faults.count(None)} kinds instead of one"

    @staticmethod
    def _type(value, wanted, place, _):
        is_right = isinstance(value, TYPES[wanted]) and (
            wanted == "boolean" or not isinstance(value, bool))
        return None if is_right else f"{place} is {value!r}, which is no {wanted}"

    @staticmethod
    def _const(value, wanted, place, _):
        is_right = value == wanted and type(value) is type(wanted)
        return None if is_right else f"{place} is {value!r} instead of {wanted!r}"

    @staticmethod
    def _enum(value, wanted, place, _):
        return None if value in wanted else f"{place} is {value!r}, which is none of {wanted}"

    @staticmethod
    def _minimum(value, wanted, place, _):
        return f"{place} is {value}" if isinstance(value, (int, float)) and value < wanted else None

    def _items(self, value, wanted, place, _):
        if not isinstance(value, list):
            return None
        faults = (self._fault(each, wanted, f"{place}[{i}]") for i, each in enumerate(value))
        return next((fault for fault in faults if fault), None)

    def _properties(self, value, wanted, place, _):
        if not isinstance(value, dict):
            return None
        faults = (self._fault(value[name], each, f"{place}.{name}")
                  for name, each in wanted.items() if name in value)
        return next((fault for fault in faults if fault), None)

    @staticmethod
    def _required(value, wanted, place, _):
        missing = [name for name in wanted if name not in value]
        return f"{place} lacks {missing}" if missing else None

    @staticmethod
    def _additionalProperties(value, wanted, place, schema):
        assert wanted is False
        more = [name for name in value if name not in schema["properties"]]
        return f"{place} has {more}, too" if more else None

    @staticmethod
    def _dependentRequired(value, wanted, place, _):
        lacking = [(name, other) for name, others in wanted.items() if name in value
                   for other in others if other not in value]
        return f"{place} has {lacking[0][0]} without {lacking[0][1]}" if lacking else None
