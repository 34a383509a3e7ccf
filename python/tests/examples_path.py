"""Lets the tests import the example script as the users run it."""

import os
import sys

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "..", "examples"))

from dask_column import format_column  # noqa: E402,F401
