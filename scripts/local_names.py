"""Which names of a C++ source are its own, so that sources can be joined without a clash."""

import re

NAME_BEFORE_DEFINITION = re.compile(r"\b([A-Za-z_]\w*)\s*(?:[({=;\[]|:(?!:))")
DEFINITION_OF_TYPE = re.compile(r"\b(?:class|struct|enum class|enum|union)\s+([A-Za-z_]\w*)")
NOT_A_NAME = re.compile(r"(static_assert|TEST(_[FP])?|INSTANTIATE_\w+|BENCHMARK\w*)\(|namespace\b|template\b|using [^=]*;$")
ENUMERATORS = re.compile(r"enum [^{]*\{(.*)\}")
STANDS_ALONE = re.compile(r"\s*#\s*define\b")


def file_local_names(lines):
    """Names at the top level of unnamed namespaces, of static functions and of main(): the ones that may clash."""
    names = set()
    local = False
    for line in lines:
        if re.match(r"namespace \{", line):
            local = True
        elif local and re.match(r"\}\s*// namespace$", line):
            local = False
        elif re.match(NOT_A_NAME, line):
            continue
        elif re.match(r"[A-Za-z_]", line) and (local or line.startswith("static ")):
            name = DEFINITION_OF_TYPE.search(line) or NAME_BEFORE_DEFINITION.search(line)
            if name:
                names.add(name.group(1))
            enumerators = ENUMERATORS.match(line)
            if enumerators and not line.startswith("enum class"):
                names.update(re.findall(r"[A-Za-z_]\w*", enumerators.group(1)))
        elif line.startswith("int main("):
            names.add("main")
    return names


def stands_alone(lines):
    """Whether a source changes how what follows it is read."""
    return any(STANDS_ALONE.match(line) for line in lines)
