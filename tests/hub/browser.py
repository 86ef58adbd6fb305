"""A browser to look at the page of a hub with."""
import os
import sys

try:
    from selenium import webdriver
    from selenium.webdriver.chrome.service import Service
except ImportError:
    print("SKIPPED: no python3-selenium, and so no browser to look at the page with")
    sys.exit(77)
if not all(map(os.path.exists, ("/usr/bin/chromium", "/usr/bin/chromedriver"))):
    print("SKIPPED: no chromium with chromium-driver to look at the page with")
    sys.exit(77)

options = webdriver.ChromeOptions()
options.binary_location = "/usr/bin/chromium"
for each in ("--headless=new", "--no-sandbox", "--disable-gpu", "--disable-dev-shm-usage", "--window-size=1360,1250", "--hide-scrollbars"):
    options.add_argument(each)
browser = webdriver.Chrome(service=Service("/usr/bin/chromedriver"), options=options)


def text(selector):
    return browser.execute_script("return document.querySelector(arguments[0]).innerText", selector)
