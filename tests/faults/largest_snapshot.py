#!/usr/bin/env python3
"""Lets the recovery keep and give back the largest surface, which takes more than the usual tests may."""

import os
import subprocess
import sys

from mutation import options


def main():
    arguments = options(__doc__)
    test = os.path.join(os.path.abspath(arguments.build), "tests", "tst_RecoveryWriter")
    if not os.access(test, os.X_OK):
        sys.exit(f"'{test}' is missing: build tst_RecoveryWriter first")
    variables = dict(os.environ, VESPERINE_LARGEST_SURFACE="1")
    ended = subprocess.run([test, "largeSurfacesComeBack"], env=variables, stdout=subprocess.PIPE)
    if ended.returncode != 0:
        sys.stdout.buffer.write(ended.stdout)
    print(f"largest_snapshot: 1 tried, {int(ended.returncode != 0)} lost")
    return int(ended.returncode != 0)


if __name__ == "__main__":
    sys.exit(main())
