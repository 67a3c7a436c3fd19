"""`qlon serve` over a generated site, on loopback: sign-in, its guards and limits, the report pages
compared with `qlon report --format json`, and the downloads compared with the report command's files.

usage: serve_test.py QLON QLON_DEMO_SITE"""
import concurrent.futures
import datetime
import fcntl
import html
import html.parser
import io
import json
import os
import re
import secrets
import socket
import subprocess
import sys
import time
import unittest
import urllib.parse
import zipfile

from serve_support import PASSWORD, ServedSite

QLON, DEMO_SITE = sys.argv[1], sys.argv[2]


class TableReader(html.parser.HTMLParser):
    """The cells of each table of a page, by table id: numbers as their data-value."""

    def __init__(self):
        super().__init__()
        self.tables, self.table, self.row, self.cell = {}, None, None, None

    def handle_starttag(self, tag, attributes):
        attributes = dict(attributes)
        if tag == "table":
            self.table = self.tables.setdefault(attributes.get("id"), [])
        elif tag == "tr" and self.table is not None:
            self.row = []
        elif tag in ("td", "th") and self.row is not None:
            self.cell = {"value": attributes.get("data-value"), "text": ""}

    def handle_data(self, data):
        if self.cell is not None:
            self.cell["text"] += data

    def handle_endtag(self, tag):
        if tag in ("td", "th") and self.cell is not None:
            self.row.append(float(self.cell["value"]) if self.cell["value"] is not None else self.cell["text"])
            self.cell = None
        elif tag == "tr" and self.row is not None:
            self.table.append(self.row)
            self.row = None
        elif tag == "table":
            self.table = None


def tables_of(page):
    reader = TableReader()
    reader.feed(page)
    return reader.tables


class ServeTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.site = ServedSite(QLON, DEMO_SITE)
        cls.cookie, _ = cls.site.sign_in()

    @classmethod
    def tearDownClass(cls):
        status, log = cls.site.stop()
        if status != 0:
            print(log)
        assert status == 0, "qlon serve ended with status %d" % status

    def get(self, path, cookie=None):
        return self.site.request("GET", path, cookie=cookie or self.cookie)

    def report_page(self, fields):
        """A report's page once its run is done, and its page's query."""
        query = urllib.parse.urlencode(dict(fields, ticket=secrets.token_hex(32)))
        for _ in range(600):
            response, body = self.get("/report?" + query)
            page = body.decode()
            if 'id="waiting"' not in page:
                return response, page, query
            time.sleep(0.5)
        self.fail("the report never ended")

    def assertNoSitePath(self, body):
        self.assertNotIn(self.site.drive.encode(), body)
        self.assertNotIn(self.site.folder.name.encode(), body)

    def test_every_route_needs_a_session(self):
        for path in ["/", "/report?report=main", "/anything", "/../etc/passwd"]:
            response, _ = self.site.request("GET", path)
            self.assertEqual(response.status, 303, path)
            self.assertEqual(response.getheader("Location"), "/signin")
        for path in ["/download/csv?report=main", "/download/xlsx"]:
            response, _ = self.site.request("GET", path)
            self.assertEqual(response.status, 401, path)
        response, _ = self.site.request("POST", "/signout", {"csrf": "x"})
        self.assertEqual(response.status, 303)
        response, _ = self.site.request("GET", "/", cookie="0" * 64)
        self.assertEqual(response.status, 303)

    def test_pages_forbid_framing_scripts_and_referrers(self):
        for cookie in (None, self.cookie):
            response, _ = self.site.request("GET", "/signin" if cookie is None else "/", cookie=cookie)
            self.assertIn("default-src 'none'", response.getheader("Content-Security-Policy"))
            self.assertEqual(response.getheader("X-Frame-Options"), "DENY")
            self.assertEqual(response.getheader("Referrer-Policy"), "no-referrer")

    def test_the_session_cookie_and_sign_out_with_its_csrf_token(self):
        cookie, response = self.site.sign_in("bob")
        header = response.getheader("Set-Cookie")
        self.assertIn("HttpOnly", header)
        self.assertIn("SameSite=Strict", header)
        self.assertNotIn("Secure", header)
        _, body = self.get("/", cookie)
        csrf = re.search(rb'name="csrf" value="([0-9a-f]{64})"', body).group(1).decode()
        response, _ = self.site.request("POST", "/signout", {"csrf": "f" * 64}, cookie=cookie)
        self.assertEqual(response.status, 403)
        self.assertEqual(self.get("/", cookie)[0].status, 200)
        response, _ = self.site.request("POST", "/signout", {"csrf": csrf}, cookie=cookie)
        self.assertEqual(response.status, 303)
        self.assertEqual(self.get("/", cookie)[0].status, 303)

    def test_a_sign_in_without_its_forms_token_is_refused(self):
        cookie, response = self.site.sign_in("bob", token="0" * 64)
        self.assertIsNone(cookie)
        self.assertEqual(response.status, 403)

    def test_zz_a_wrong_password_five_times_locks_the_name_out(self):
        # Last of the tests: the address is locked out too.
        for attempt in range(5):
            cookie, response = self.site.sign_in("bob", "wrong password %d" % attempt)
            self.assertIsNone(cookie)
            self.assertEqual(response.status, 401)
        cookie, response = self.site.sign_in("bob")
        self.assertIsNone(cookie)
        self.assertEqual(response.status, 429)

    def test_odd_paths_and_oversized_requests_get_nothing_and_harm_nothing(self):
        for path in ["/..%2f..%2fetc%2fpasswd", "/%2e%2e/%2e%2e/etc/passwd", "/style.css/../../etc/passwd", "/report%00.css",
                     "/download/..%2f..%2fetc%2fpasswd"]:
            response, body = self.get(path)
            self.assertNotIn(b"root:", body)
            self.assertIn(response.status, (303, 400, 401, 404), path)
        with socket.create_connection(("127.0.0.1", self.site.port), timeout=30) as raw:
            raw.sendall(b"GET /\x00/x HTTP/1.1\r\nHost: x\r\n\r\n")
            self.assertNotIn(b" 200 ", raw.recv(4096))
        with socket.create_connection(("127.0.0.1", self.site.port), timeout=30) as raw:
            try:
                raw.sendall(b"GET / HTTP/1.1\r\nHost: x\r\nX-Big: " + b"a" * (1 << 20) + b"\r\n\r\n")
            except (BrokenPipeError, ConnectionResetError):
                pass
            self.assertNotIn(b" 200 ", self.answer_of(raw))
        with socket.create_connection(("127.0.0.1", self.site.port), timeout=30) as raw:
            raw.sendall(b"POST /signin HTTP/1.1\r\nHost: x\r\nContent-Type: application/x-www-form-urlencoded\r\n"
                        b"Content-Length: %d\r\n\r\n" % (10 << 20))
            try:
                for _ in range(160):
                    raw.sendall(b"a" * 65536)
            except (BrokenPipeError, ConnectionResetError):
                pass
            answer = self.answer_of(raw)
            self.assertTrue(answer == b"" or b" 413 " in answer, answer[:100])
        self.assertEqual(self.get("/")[0].status, 200)

    @staticmethod
    def answer_of(raw):
        try:
            return raw.recv(4096)
        except ConnectionResetError:
            return b""

    def test_a_slow_client_loses_its_worker(self):
        started = time.monotonic()
        with socket.create_connection(("127.0.0.1", self.site.port), timeout=30) as raw:
            raw.sendall(b"GET /signin HTTP/1.1\r\nHost: x\r\n")
            answer = self.answer_of(raw)
            self.assertTrue(answer == b"" or answer.startswith(b"HTTP/1.1 400 "), answer[:100])
        self.assertLess(time.monotonic() - started, 15)

    def connections_held(self):
        fds = "/proc/%d/fd" % self.site.server.pid
        return sum(os.readlink(os.path.join(fds, fd)).startswith("socket:") for fd in os.listdir(fds))

    def test_a_hundred_connections_at_once_are_all_answered_thirty_two_at_a_time(self):
        # More clients than workers, sending nothing: the server holds its 32 workers' connections,
        # the one in hand and its listening socket; the rest wait in the system's backlog (its 6
        # places fit them all, so every connect returns at once).
        idle = [socket.create_connection(("127.0.0.1", self.site.port), timeout=30) for _ in range(36)]
        time.sleep(1)
        self.assertLessEqual(self.connections_held(), 34)
        for connection in idle:
            connection.close()

        def one(_):
            return self.site.request("GET", "/signin", timeout=60)[0].status
        with concurrent.futures.ThreadPoolExecutor(100) as pool:
            statuses = list(pool.map(one, range(100)))
        self.assertEqual(statuses, [200] * 100)

    def test_report_pages_show_the_report_commands_figures(self):
        cases = [
            ({"report": "main"}, ["main"]),
            ({"report": "main", "category": "bar", "start": "17:00"}, ["main", "--category", "bar", "--start-time", "5:00 pm"]),
            ({"report": "items-sold", "fromWord": "first-of-last-month", "toWord": "yesterday"},
             ["items-sold", "--from", "first-of-last-month", "--to", "yesterday"]),
            ({"report": "server", "server": "1002"}, ["server", "--server", "1002"]),
        ]
        for fields, arguments in cases:
            with self.subTest(arguments=arguments):
                expected = self.site.report_json(arguments)
                response, page, _ = self.report_page(fields)
                self.assertEqual(response.status, 200, page)
                self.assertNoSitePath(page.encode())
                rows = tables_of(page)["rows"]
                key = "sales" if fields["report"] == "server" else "rows"
                self.assertEqual(len(rows) - 2, len(expected[key]))
                columns = {"main": ["name", "category", "price", "units", "volume"],
                           "items-sold": ["units", "name", "volume", "price", "department"],
                           "server": ["date", "time", "item", "price", "class", "server"]}[fields["report"]]
                shown = [dict(zip(columns, row)) for row in rows[1:-1]]
                self.assertEqual(shown, [{column: row[column] for column in columns} for row in expected[key]])
                if fields["report"] == "main":
                    # The charts' sales by hour add up to the list's.
                    self.assertAlmostEqual(sum(expected["byHour"]), sum(row["volume"] for row in expected["rows"]), places=2)
                    self.assertAlmostEqual(sum(day["volume"] for day in expected["byDay"]), sum(expected["byHour"]), places=2)
                if fields["report"] != "items-sold":
                    self.assertEqual(page.count("<svg"), 2)
                if fields["report"] == "main":
                    departments = tables_of(page)["departments"][1:-1]
                    self.assertEqual(departments, [[d["department"], d["units"], d["volume"]] for d in expected["departments"]])

    def test_a_refused_report_says_why_without_a_path(self):
        response, page, _ = self.report_page({"report": "main", "department": "Nope"})
        self.assertEqual(response.status, 500)
        self.assertIn("unknown department", page)
        self.assertNoSitePath(page.encode())
        response, page, _ = self.report_page({"report": "main", "from": "2000-01-01", "to": "2020-01-01"})
        self.assertEqual(response.status, 400)

    def test_downloads_equal_the_report_commands_files(self):
        _, page, query = self.report_page({"report": "main", "category": "food"})
        csv = os.path.join(self.site.folder.name, "export.csv")
        self.site.run_qlon(["--drive", "C=" + self.site.drive, "report", "main", "--category", "food", "--csv", csv])
        response, body = self.get("/download/csv?" + query)
        self.assertEqual(response.status, 200)
        with open(csv, "rb") as exported:
            self.assertEqual(body, exported.read())
        response, body = self.get("/download/pdf?" + query)
        self.assertEqual(response.status, 200)
        self.assertTrue(body.startswith(b"%PDF"))
        self.assertNoSitePath(body)
        response, body = self.get("/download/xlsx?" + query)
        self.assertEqual(response.status, 200)
        expected = self.site.report_json(["main", "--category", "food"])
        with zipfile.ZipFile(io.BytesIO(body)) as workbook:
            sheet = workbook.read("xl/worksheets/sheet1.xml").decode()
        numbers = re.findall(r'<c r="E(\d+)"(?![^>]*t="s")[^>]*><v>([^<]*)</v>', sheet)
        self.assertEqual([float(value) for _, value in numbers], [row["volume"] for row in expected["rows"]])
        self.assertIn("<f>SUM(E2:E%d)</f>" % (len(expected["rows"]) + 1), sheet)
        response, _ = self.get("/download/csv?" + query.replace("report=main", "report=server&server=1002"))
        self.assertEqual(response.status, 400)
        # The server's sales: their dates as dates, days since 1899-12-30.
        _, _, query = self.report_page({"report": "server", "server": "1002"})
        expected = self.site.report_json(["server", "--server", "1002"])
        with zipfile.ZipFile(io.BytesIO(self.get("/download/xlsx?" + query)[1])) as workbook:
            sheet = workbook.read("xl/worksheets/sheet1.xml").decode()
        first = datetime.datetime.strptime(expected["sales"][0]["date"], "%m/%d/%Y").date()
        self.assertRegex(sheet, r'<c r="A2" s="\d+"><v>%d</v>' % (first - datetime.date(1899, 12, 30)).days)

    def departments_file(self):
        return os.path.join(self.site.drive, "Quillon", "data", "Departments.dat")

    def departments_bytes(self):
        with open(self.departments_file(), "rb") as file:
            return file.read()

    def departments_form(self, cookie):
        """The departments page's rows and its token."""
        response, body = self.get("/departments", cookie)
        self.assertEqual(response.status, 200)
        page = body.decode()
        rows = [html.unescape(value) for value in re.findall(r'name="row\d+" id="row\d+" value="([^"]*)"', page)]
        return {"row%d" % row: name for row, name in enumerate(rows)}, re.search(r'name="csrf" value="([0-9a-f]{64})"', page).group(1)

    def save_departments(self, fields, csrf, cookie=None):
        return self.site.request("POST", "/departments", dict(fields, csrf=csrf), cookie=cookie or self.cookie)

    def test_the_departments_list_is_for_managers_alone(self):
        before = self.departments_bytes()
        viewer, _ = self.site.sign_in("bob")
        response, page = self.get("/", viewer)
        self.assertNotIn(b'href="/departments"', page)
        csrf = re.search(rb'name="csrf" value="([0-9a-f]{64})"', page).group(1).decode()
        self.assertEqual(self.get("/departments", viewer)[0].status, 403)
        rows, _ = self.departments_form(self.cookie)
        response, _ = self.save_departments(dict(rows, row0="Viewer's", action="save"), csrf, viewer)
        self.assertEqual(response.status, 403)
        for method in ("GET", "POST"):
            response, _ = self.site.request(method, "/departments", {"csrf": csrf} if method == "POST" else None)
            self.assertEqual((response.status, response.getheader("Location")), (303, "/signin"))
        self.assertEqual(self.departments_bytes(), before)

    def test_a_managers_departments_are_written_as_the_editor_writes_them(self):
        rows, csrf = self.departments_form(self.cookie)
        self.assertEqual(len(rows), 14)
        before = self.departments_bytes()
        self.addCleanup(self.restore_departments, before)
        changed = dict(rows, row1="Bar & Café", action="save")
        for token in (None, "f" * 64):
            fields = changed if token is None else dict(changed, csrf=token)
            response, _ = self.site.request("POST", "/departments", fields, cookie=self.cookie)
            self.assertEqual(response.status, 403)
        # A file a station holds is left as it was, with the platform's message and no path.
        with open(self.departments_file(), "r+b") as held:
            fcntl.lockf(held, fcntl.LOCK_EX)
            response, body = self.save_departments(changed, csrf)
        self.assertEqual(response.status, 503)
        self.assertIn(b"Permission denied", body)
        self.assertNoSitePath(body)
        self.assertEqual(self.departments_bytes(), before)
        # Renamed, a new one added and moved up to the top, the fourth removed: each on the page as it then stands.
        expected = [rows["row%d" % row] for row in range(14)]
        expected[1] = "Bar & Café"
        added = expected.index("")
        actions = [changed, {"new": "Sushi", "action": "add"}]
        actions += [{"action": "up:%d" % row} for row in range(added, 0, -1)] + [{"action": "remove:3"}]
        for fields in actions:
            response, _ = self.save_departments(dict(self.departments_form(self.cookie)[0], **fields), csrf)
            self.assertEqual(response.status, 303)
        expected = ["Sushi"] + expected[:added] + expected[added + 1:]
        del expected[3]
        expected.append("")
        written = b"".join(b'"' + name.encode("cp1252") + b'"\r\n' for name in expected)
        self.assertEqual(self.departments_bytes(), written)
        self.assertEqual(self.departments_form(self.cookie)[0], expected_fields(expected))
        _, page = self.get("/")
        listed = re.findall(r'<option value="([^"]*)"', re.search(r'name="department".*?</select>', page.decode()).group(0))
        self.assertEqual(listed, [""] + [html.escape(name) for name in expected if name])
        response, _ = self.save_departments(dict(expected_fields(expected), row3='Say "cheese"', action="save"), csrf)
        self.assertEqual(response.status, 400)
        self.assertEqual(self.departments_bytes(), written)

    def restore_departments(self, contents):
        with open(self.departments_file(), "wb") as file:
            file.write(contents)


def expected_fields(names):
    return {"row%d" % row: name for row, name in enumerate(names)}


class TlsTest(unittest.TestCase):
    def test_the_server_speaks_tls_with_secure_cookies(self):
        site = ServedSite(QLON, DEMO_SITE, tls=True)
        try:
            cookie, response = site.sign_in()
            self.assertIsNotNone(cookie)
            self.assertIn("Secure", response.getheader("Set-Cookie"))
            self.assertIn("max-age", response.getheader("Strict-Transport-Security"))
            self.assertEqual(site.request("GET", "/", cookie=cookie)[0].status, 200)
        finally:
            status, log = site.stop()
        self.assertEqual(status, 0, log)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
