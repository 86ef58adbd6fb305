#!/usr/bin/python3
"""A browser to look at the page of a hub with. browser.py PAGE SELECTOR PATTERN...: until parts of the page read so."""
import os
import re
import sys

from programs import within

try:
    from selenium import webdriver
    from selenium.webdriver.chrome.service import Service
    os.stat("/usr/bin/chromium"), os.stat("/usr/bin/chromedriver")
except (ImportError, FileNotFoundError) as missing:
    print("SKIPPED: no python3-selenium, chromium or chromium-driver to look at the page with:", missing)
    sys.exit(77)

options = webdriver.ChromeOptions()
options.binary_location = "/usr/bin/chromium"
for each in ("--headless=new", "--no-sandbox", "--disable-gpu", "--disable-dev-shm-usage", "--window-size=1360,1250", "--hide-scrollbars"):
    options.add_argument(each)
browser = webdriver.Chrome(service=Service("/usr/bin/chromedriver"), options=options)


def text(selector):
    return browser.execute_script("return document.querySelector(arguments[0]).innerText", selector)


if __name__ == "__main__":
    try:
        browser.get(sys.argv[1])
        for selector, pattern in zip(sys.argv[2::2], sys.argv[3::2]):
            assert within(30, lambda: re.search(pattern, text(selector))), (selector, pattern, text("body"))
    finally:
        browser.quit()
