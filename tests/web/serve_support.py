"""A generated site, an account and a `qlon serve` on a free loopback port, for the server's tests."""
import http.client
import json
import os
import re
import signal
import subprocess
import tempfile
import urllib.parse

PASSWORD = "correct horse battery"


class ServedSite:
    def __init__(self, qlon, demo_site, tls=False):
        self.qlon = qlon
        self.folder = tempfile.TemporaryDirectory(prefix="qlon-serve-")
        self.drive = os.path.join(self.folder.name, "drive")
        os.mkdir(self.drive)
        subprocess.run([demo_site, self.drive], check=True, capture_output=True, timeout=120)
        self.env = dict(os.environ, XDG_CONFIG_HOME=os.path.join(self.folder.name, "config"), QT_QPA_PLATFORM="offscreen")
        for name, role in (("alice", "manager"), ("bob", "viewer")):
            self.run_qlon(["user", "add", name, "--role", role], input=PASSWORD + "\n")
        self.tls = tls
        arguments = [qlon, "--drive", "C=" + self.drive, "serve", "--listen", "127.0.0.1:0", "--report-time-limit", "300"]
        if tls:
            self.cert = os.path.join(self.folder.name, "cert.pem")
            self.key = os.path.join(self.folder.name, "key.pem")
            subprocess.run(["openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days", "1", "-subj", "/CN=127.0.0.1",
                            "-addext", "subjectAltName=IP:127.0.0.1", "-keyout", self.key, "-out", self.cert],
                           check=True, capture_output=True, timeout=60)
            arguments += ["--tls-cert", self.cert, "--tls-key", self.key]
        self.log = open(os.path.join(self.folder.name, "serve.log"), "w+")
        self.server = subprocess.Popen(arguments, env=self.env, stdout=subprocess.PIPE, stderr=self.log, text=True)
        line = self.server.stdout.readline()
        match = re.search(r"://127\.0\.0\.1:(\d+)/", line)
        if not match:
            self.stop()
            raise RuntimeError("qlon serve did not start: " + line + self.server_log())
        self.port = int(match.group(1))

    def run_qlon(self, arguments, input=None):
        return subprocess.run([self.qlon] + arguments, env=self.env, input=input, capture_output=True, text=True, timeout=600,
                              check=True)

    def report_json(self, arguments):
        out = self.run_qlon(["--drive", "C=" + self.drive, "report"] + arguments + ["--format", "json"]).stdout
        return json.loads(out)

    def server_log(self):
        self.log.flush()
        self.log.seek(0)
        return self.log.read()

    def connection(self, timeout=60):
        if self.tls:
            import ssl
            context = ssl.create_default_context(cafile=self.cert)
            return http.client.HTTPSConnection("127.0.0.1", self.port, timeout=timeout, context=context)
        return http.client.HTTPConnection("127.0.0.1", self.port, timeout=timeout)

    def request(self, method, path, body=None, cookie=None, headers=None, timeout=60):
        connection = self.connection(timeout)
        all_headers = dict(headers or {})
        if cookie:
            all_headers["Cookie"] = "qlon_session=" + cookie
        if body is not None:
            body = urllib.parse.urlencode(body)
            all_headers["Content-Type"] = "application/x-www-form-urlencoded"
        connection.request(method, path, body=body, headers=all_headers)
        response = connection.getresponse()
        data = response.read()
        connection.close()
        return response, data

    def sign_in(self, name="alice", password=PASSWORD, token=None):
        """Signs in through the form, with the token of its page unless one is given."""
        page, body = self.request("GET", "/signin")
        form_token = re.search(r'name="csrf" value="([0-9a-f]{64})"', body.decode()).group(1)
        cookie_token = re.match(r"qlon_signin=([0-9a-f]{64});", page.getheader("Set-Cookie")).group(1)
        response, _ = self.request("POST", "/signin", {"name": name, "password": password, "csrf": token or form_token},
                                   headers={"Cookie": "qlon_signin=" + cookie_token})
        cookie = response.getheader("Set-Cookie") or ""
        match = re.match(r"qlon_session=([0-9a-f]{64});", cookie)
        return (match.group(1) if match else None), response

    def stop(self):
        if self.server.poll() is None:
            self.server.send_signal(signal.SIGTERM)
            try:
                self.server.wait(timeout=30)
            except subprocess.TimeoutExpired:
                self.server.kill()
                self.server.wait()
        self.server.stdout.close()
        status = self.server.returncode
        log = self.server_log()
        self.log.close()
        self.folder.cleanup()
        return status, log
