#!/usr/bin/env python3
"""Writes corvane/automation/internal/entity_fields.h, the property table of
every entity struct in corvane/entities/, from the structs themselves: one
property per member, by the member's name, in member order. The types are
taken from the members by the compiler. Run it again after an entity changes;
the output is committed. With --check it only tells whether the committed
file is what it would write (exit status 1 when not)."""
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
ENTITIES = ROOT / "corvane" / "entities"
OUT = ROOT / "corvane" / "automation" / "internal" / "entity_fields.h"

# The order in which the entity classes are listed.
ORDER = ["clsEntBOrderType", "clsEntBOrderh", "clsEntBOrderi", "clsEntBOrdChange",
         "clsEntSitemNo", "clsEntBPriceh", "clsEntBPricei", "clsEntSCurrency",
         "clsEntBOutMakeh", "clsEntBOutMakei", "clsEntBCosth", "clsEntBCosti",
         "clsEntBCosts", "clsEntBWageSort", "clsEntEGoodsType", "clsEntBCustom",
         "clsEntBSaler", "clsEntBCStudy", "clsEntBSample"]

MEMBER = re.compile(r"^\s+(?:std::string|double|Date|std::int16_t|std::int32_t)\s+(\w+)\s*(?:=[^;]*|\{\})?;")


def main():
    structs = {}
    headers = {}
    for path in sorted(ENTITIES.glob("*.h")):
        current = None
        for line in path.read_text().splitlines():
            m = re.match(r"^struct (\w+) \{", line)
            if m:
                current = m.group(1)
                structs[current] = []
                headers[current] = path.name
                continue
            if current and line.startswith("};"):
                current = None
                continue
            if current:
                m = MEMBER.match(line)
                if m:
                    structs[current].append(m.group(1))
                elif line.strip() and not line.strip().startswith("//"):
                    sys.exit(f"{path.name}: member not understood: {line.strip()}")
    missing = set(structs) ^ set(ORDER)
    if missing:
        sys.exit(f"entity list and folder differ: {sorted(missing)}")

    out = []
    out.append("// The property table of every entity class: one read/write property per")
    out.append("// member, named as the member, in member order. Written by")
    out.append("// scripts/gen-entity-fields.py from corvane/entities/*.h; do not edit.")
    out.append("#ifndef CORVANE_AUTOMATION_INTERNAL_ENTITY_FIELDS_H_")
    out.append("#define CORVANE_AUTOMATION_INTERNAL_ENTITY_FIELDS_H_")
    out.append("")
    out.append("#include <array>")
    out.append("")
    out.append('#include "corvane/automation/internal/field.h"')
    for h in sorted(set(headers.values())):
        out.append(f'#include "corvane/entities/{h}"')
    out.append("")
    out.append("// X(entity) for every entity class, in the order of the list.")
    out.append("#define CORVANE_FOR_EACH_ENTITY(X) \\")
    out.append(" \\\n".join(f"  X({name})" for name in ORDER))
    out.append("")
    out.append("namespace corvane::automation::internal {")
    for name in ORDER:
        out.append("")
        out.append("template <>")
        out.append(f"struct EntityFields<{name}> {{")
        out.append(f'  static constexpr const char* kName = "{name}";')
        out.append(f"  static constexpr std::array<Field<{name}>, {len(structs[name])}> kFields = {{{{")
        for member in structs[name]:
            out.append(f'      {{"{member}", &{name}::{member}}},')
        out.append("  }};")
        out.append("};")
    out.append("")
    out.append("}  // namespace corvane::automation::internal")
    out.append("")
    out.append("#endif  // CORVANE_AUTOMATION_INTERNAL_ENTITY_FIELDS_H_")
    text = "\n".join(out) + "\n"
    if "--check" in sys.argv[1:]:
        if OUT.read_text() != text:
            sys.exit(f"{OUT} is out of date: run {pathlib.Path(__file__).name}")
        return
    OUT.write_text(text)


if __name__ == "__main__":
    main()
