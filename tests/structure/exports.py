"""exports.py LIBRARY: fails unless the shared library exports its class factory and nothing else of its own."""
import re
import subprocess
import sys

FACTORY = "createKoTimebaseEditor"
# Weak symbols ('V', 'W', 'u') are what the compiler shares between libraries: instantiations of the standard
# library, and the type of the failure that crosses the boundary.
SHARED_KINDS = set("VWuvw")


def main():
    listing = subprocess.run(["nm", "-D", "-C", "--defined-only", "--format=posix", sys.argv[1]], check=True,
                             capture_output=True, text=True).stdout
    symbols = re.findall(r"^(.*) (\w) [0-9a-f]+(?: [0-9a-f]*)?$", listing, re.MULTILINE)
    own = sorted(name for name, kind in symbols if kind not in SHARED_KINDS)
    leaked = sorted(name for name, kind in symbols
                    if kind in SHARED_KINDS and "ko::" in name and "ko::Failure" not in name)
    print(f"own: {own}", f"leaked: {leaked}", sep="\n")
    return 0 if own == [FACTORY] and not leaked else 1


if __name__ == "__main__":
    sys.exit(main())
