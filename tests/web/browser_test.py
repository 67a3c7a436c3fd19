"""End to end in a real browser: Debian's headless chromium, driven through selenium, against
`qlon serve` on a free loopback port over a generated site.

usage: browser_test.py QLON QLON_DEMO_SITE [SCREENSHOT.png]"""
import glob
import io
import json
import os
import sys
import tempfile
import time
import unittest
import zipfile

from selenium import webdriver
from selenium.webdriver.chrome.service import Service
from selenium.webdriver.common.by import By
from selenium.webdriver.support.ui import Select, WebDriverWait

from serve_support import PASSWORD, ServedSite

QLON, DEMO_SITE = sys.argv[1], sys.argv[2]
SCREENSHOT = sys.argv[3] if len(sys.argv) > 3 else None


class BrowserTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.site = ServedSite(QLON, DEMO_SITE)
        cls.profile = tempfile.TemporaryDirectory(prefix="qlon-chromium-")
        cls.downloads = os.path.join(cls.profile.name, "downloads")
        options = webdriver.ChromeOptions()
        options.binary_location = "/usr/bin/chromium"
        for argument in ["--headless", "--no-sandbox", "--disable-gpu", "--disable-background-networking",
                         "--disable-component-update", "--disable-sync", "--no-first-run", "--disable-dev-shm-usage",
                         "--user-data-dir=" + os.path.join(cls.profile.name, "profile"), "--window-size=1200,900"]:
            options.add_argument(argument)
        options.add_experimental_option("prefs", {"download.default_directory": cls.downloads, "download.prompt_for_download": False})
        cls.browser = webdriver.Chrome(service=Service("/usr/bin/chromedriver"), options=options)
        cls.browser.set_page_load_timeout(120)
        cls.base = "http://127.0.0.1:%d" % cls.site.port

    @classmethod
    def tearDownClass(cls):
        cls.browser.quit()
        cls.profile.cleanup()
        status, log = cls.site.stop()
        assert status == 0, log

    def wait_for(self, condition, seconds=600):
        return WebDriverWait(self.browser, seconds, poll_frequency=0.5).until(condition)

    def run_report(self, fields):
        """Fills the form as a person would and waits for the result's table."""
        browser = self.browser
        browser.get(self.base + "/")
        Select(browser.find_element(By.ID, "report")).select_by_value(fields.pop("report"))
        for name, value in fields.items():
            element = browser.find_element(By.ID, name)
            if element.tag_name == "select":
                Select(element).select_by_value(value)
            elif element.get_attribute("type") == "time":
                element.send_keys(value)
            else:
                element.clear()
                element.send_keys(value)
        browser.find_element(By.ID, "run").click()
        self.wait_for(lambda b: b.find_elements(By.ID, "rows") or b.find_elements(By.ID, "failure"))
        return browser.find_element(By.ID, "rows")

    def shown_rows(self, table):
        rows = []
        for row in table.find_elements(By.CSS_SELECTOR, "tbody tr"):
            rows.append([float(cell.get_attribute("data-value")) if cell.get_attribute("data-value") is not None else cell.text
                         for cell in row.find_elements(By.TAG_NAME, "td")])
        return rows

    def downloaded(self, link_id, suffix):
        before = set(glob.glob(os.path.join(self.downloads, "*")))
        self.browser.find_element(By.ID, link_id).click()
        deadline = time.time() + 600
        while time.time() < deadline:
            new = [name for name in set(glob.glob(os.path.join(self.downloads, "*"))) - before if name.endswith(suffix)]
            if new:
                with open(new[0], "rb") as file:
                    return file.read()
            time.sleep(0.5)
        self.fail("no download of " + link_id)

    def test_a_manager_signs_in_runs_each_report_downloads_it_and_signs_out(self):
        browser = self.browser
        browser.get(self.base + "/report?report=main")
        self.assertTrue(browser.current_url.endswith("/signin"))
        browser.find_element(By.ID, "name").send_keys("alice")
        browser.find_element(By.ID, "password").send_keys(PASSWORD)
        browser.find_element(By.ID, "signin").click()
        self.wait_for(lambda b: b.find_elements(By.ID, "run"))

        cases = [({"report": "main"}, ["main"], ["name", "category", "price", "units", "volume"], "rows"),
                 ({"report": "main", "category": "food", "start": "11:00AM"}, ["main", "--category", "food", "--start-time", "11:00 am"],
                  ["name", "category", "price", "units", "volume"], "rows"),
                 ({"report": "items-sold", "fromWord": "first-of-last-month"}, ["items-sold", "--from", "first-of-last-month"],
                  ["units", "name", "volume", "price", "department"], "rows"),
                 ({"report": "server", "server": "1002"}, ["server", "--server", "1002"],
                  ["date", "time", "item", "price", "class", "server"], "sales")]
        for fields, arguments, columns, key in cases:
            with self.subTest(arguments=arguments):
                table = self.run_report(dict(fields))
                expected = self.site.report_json(arguments)
                shown = [dict(zip(columns, row)) for row in self.shown_rows(table)]
                self.assertEqual(shown, [{column: row[column] for column in columns} for row in expected[key]])

        # The main report's downloads against the report command's own files.
        self.run_report({"report": "main"})
        csv = os.path.join(self.site.folder.name, "export.csv")
        self.site.run_qlon(["--drive", "C=" + self.site.drive, "report", "main", "--csv", csv])
        with open(csv, "rb") as exported:
            self.assertEqual(self.downloaded("download-csv", ".csv"), exported.read())
        self.assertTrue(self.downloaded("download-pdf", ".pdf").startswith(b"%PDF"))
        expected = self.site.report_json(["main"])
        with zipfile.ZipFile(io.BytesIO(self.downloaded("download-xlsx", ".xlsx"))) as workbook:
            sheet = workbook.read("xl/worksheets/sheet1.xml").decode()
            strings = workbook.read("xl/sharedStrings.xml").decode()
        self.assertIn("<f>SUM(E2:E%d)</f>" % (len(expected["rows"]) + 1), sheet)
        self.assertIn(expected["rows"][0]["name"].replace("&", "&amp;"), strings)

        # A phone's width: one column, nothing to scroll sideways.
        browser.set_window_size(390, 844)
        browser.refresh()
        self.wait_for(lambda b: b.find_elements(By.ID, "rows"))
        self.assertLessEqual(browser.execute_script("return document.documentElement.scrollWidth"),
                             browser.execute_script("return window.innerWidth"))
        if SCREENSHOT:
            browser.set_window_size(1200, 900)
            self.run_report({"report": "main", "category": "bar"})
            browser.save_screenshot(SCREENSHOT)

        browser.find_element(By.ID, "signout").click()
        self.wait_for(lambda b: b.current_url.endswith("/signin"))
        browser.get(self.base + "/")
        self.assertTrue(browser.current_url.endswith("/signin"))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
