#!/usr/bin/env python3
"""Turns the resource documents and their pictures into a C++ source file.

Every document, and before it every picture that it refers to, becomes a byte array with the name
under which it is registered in the memory file system. The documents refer to pictures by natural
relative paths; in the embedded copy those become the registered names, which are relative to the
registered document.
"""

import argparse
import pathlib
import re

# Registered names are kept from release to release: they begin with the name of the generated
# list, documents carry the path they were first built at, pictures their path relative to the
# document. "/" is written as "_".
LIST_NAME = "psl_xrc.inl$"
DOCUMENT_ROOT = "/Users/vorlund/dev/tag/tarnvale/res/"
MIME_TYPES = {
    ".ico": "image/vnd.microsoft.icon",
    ".png": "image/png",
    ".xrc": "text/xml",
}
PICTURE = re.compile(r"(?<=>)(?P<path>[^<>]+\.(?:png|ico))(?=<)")


def flat(path):
    return path.replace("/", "_")


def document_name(document):
    """The registered name of a document: its path below the resource folder, rooted."""
    parts = document.resolve().parts
    below = parts[len(parts) - parts[::-1].index("res"):]
    return LIST_NAME + flat(DOCUMENT_ROOT + "/".join(below))


def embedded_files(documents):
    """All files as (name, bytes), in the order of registration, each name once."""
    files = {}
    for document in documents:
        text = document.read_text(encoding="utf-8")
        for path in PICTURE.findall(text):
            files.setdefault(LIST_NAME + flat(path), (document.parent / path).read_bytes())
        text = PICTURE.sub(lambda m: LIST_NAME + flat(m["path"]), text)
        files[document_name(document)] = text.encode("utf-8")
    return files


def byte_rows(data):
    for start in range(0, len(data), 24):
        yield ",".join(str(byte) for byte in data[start:start + 24]) + ","


def source(files):
    yield "// Generated from the resource documents; do not edit.\n"
    yield '#include "psl_resources.h"\n'
    yield "namespace\n{\n"
    for number, data in enumerate(files.values()):
        yield f"const unsigned char file{number}[] = {{"
        yield from byte_rows(data)
        yield "};"
    yield "\n} // namespace\n"
    yield "const std::vector<EmbeddedFile>& embeddedFiles()\n{"
    yield "    static const std::vector<EmbeddedFile> files = {"
    for number, name in enumerate(files):
        mime_type = MIME_TYPES[pathlib.PurePath(name).suffix]
        yield f'        {{"{name}", file{number}, sizeof file{number}, "{mime_type}"}},'
    yield "    };\n    return files;\n}"


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--output", type=pathlib.Path, required=True)
    parser.add_argument("documents", type=pathlib.Path, nargs="+")
    arguments = parser.parse_args()
    files = embedded_files(arguments.documents)
    arguments.output.write_text("\n".join(source(files)) + "\n", encoding="utf-8")


if __name__ == "__main__":
    main()
