#!/usr/bin/python3
"""Waits until parts of a page read so. look.py PAGE SELECTOR PATTERN [SELECTOR PATTERN]..."""
import re
import sys

from browser import browser, text
from programs import within

try:
    browser.get(sys.argv[1])
    for selector, pattern in zip(sys.argv[2::2], sys.argv[3::2]):
        assert within(30, lambda: re.search(pattern, text(selector))), (selector, pattern, text("body"))
finally:
    browser.quit()
