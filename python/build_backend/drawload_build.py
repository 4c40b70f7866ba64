"""Builds the wheel and the source archive of the module with the standard library alone (PEP 517).

The module is pure Python, so a wheel is its files and three small texts; nothing is fetched and no compiler runs.
"""

import base64
import hashlib
import pathlib
import tarfile
import zipfile

NAME = "drawload"
VERSION = "0.1.0"
HERE = pathlib.Path(__file__).resolve().parent.parent
METADATA = f"Metadata-Version: 2.1\nName: {NAME}\nVersion: {VERSION}\nRequires-Python: >=3.9\nLicense: Apache-2.0\n"
WHEEL = "Wheel-Version: 1.0\nGenerator: drawload_build\nRoot-Is-Purelib: true\nTag: py3-none-any\n"


def module_files():
    return sorted(p for p in (HERE / NAME).iterdir() if p.suffix in (".py", ".typed"))


def record_line(name, data):
    digest = base64.urlsafe_b64encode(hashlib.sha256(data).digest()).rstrip(b"=").decode()
    return f"{name},sha256={digest},{len(data)}\n"


def build_wheel(wheel_directory, config_settings=None, metadata_directory=None):
    info = f"{NAME}-{VERSION}.dist-info"
    contents = {f"{NAME}/{path.name}": path.read_bytes() for path in module_files()}
    contents[f"{info}/METADATA"] = METADATA.encode()
    contents[f"{info}/WHEEL"] = WHEEL.encode()
    record = "".join(record_line(name, data) for name, data in contents.items()) + f"{info}/RECORD,,\n"
    contents[f"{info}/RECORD"] = record.encode()
    wheel = f"{NAME}-{VERSION}-py3-none-any.whl"
    with zipfile.ZipFile(pathlib.Path(wheel_directory) / wheel, "w", zipfile.ZIP_DEFLATED) as archive:
        for name, data in contents.items():
            archive.writestr(name, data)
    return wheel


def build_sdist(sdist_directory, config_settings=None):
    root = f"{NAME}-{VERSION}"
    with tarfile.open(pathlib.Path(sdist_directory) / f"{root}.tar.gz", "w:gz") as archive:
        for path in [HERE / "pyproject.toml", pathlib.Path(__file__).resolve(), *module_files()]:
            archive.add(path, f"{root}/{path.relative_to(HERE)}")
    return f"{root}.tar.gz"
