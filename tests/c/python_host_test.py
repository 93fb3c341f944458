# SPDX-License-Identifier: MIT
"""The flat C interface from Python. Usage: python_host_test.py LIBRARY PROJECT_FOLDER"""

import csv
import ctypes
import hashlib
import http.server
import io
import os
import subprocess
import sys
import threading
import unittest

LIBRARY_PATH, PROJECT = sys.argv[1:3]
SAMPLES = os.path.join(PROJECT, "samples", "python")
DISTRICTS = os.path.join(PROJECT, "data", "districts-utf8.csv")
sys.path.insert(0, SAMPLES)

from quarnfc import FUNCTIONS, Library, QuarnError  # noqa: E402

library = Library(LIBRARY_PATH)


def expected_rows():
    with open(DISTRICTS, encoding="utf-8-sig", newline="") as file:
        return list(csv.DictReader(io.StringIO(file.read())))


class Csv(unittest.TestCase):
    def test_reads_the_districts_as_pythons_own_reader_does(self):
        self.assertEqual(list(library.csv_rows(DISTRICTS)), expected_rows())

    def test_missing_file_raises_with_the_librarys_message(self):
        with self.assertRaises(QuarnError) as raised:
            list(library.csv_rows("/missing/file.csv"))
        self.assertEqual(raised.exception.code, 14)
        self.assertIn("/missing/file.csv", raised.exception.message)


class Json(unittest.TestCase):
    def test_chinese_text_goes_in_and_comes_out(self):
        self.assertEqual(library.json('{"城市":"北京","n":[1,2.5],"t":true}'),
                         {"城市": "北京", "n": [1, 2.5], "t": True})

    def test_character_that_the_code_page_lacks_is_refused(self):
        with self.assertRaises(QuarnError) as raised:
            library.json('{"a":"\N{GRINNING FACE}"}')
        self.assertEqual(raised.exception.code, 5)

    def test_broken_text_raises(self):
        with self.assertRaises(QuarnError):
            library.json('{"a":')


class Geodesy(unittest.TestCase):
    def test_every_district_comes_back_from_its_projection(self):
        points = [(float(row["longitude"]), float(row["latitude"])) for row in expected_rows()]
        near = [point for point in points if abs(point[0] - 117) <= 3]
        self.assertGreater(len(near), 400)
        there = library.project(4548, near)
        back = library.project(4548, there, inverse=True)
        for (lon, lat), (lon2, lat2) in zip(near, back):
            self.assertAlmostEqual(lon, lon2, places=7)
            self.assertAlmostEqual(lat, lat2, places=7)

    def test_unknown_code_raises(self):
        with self.assertRaises(QuarnError) as raised:
            library.project(4326, [])
        self.assertEqual(raised.exception.code, 87)


class Codecs(unittest.TestCase):
    def test_digest_of_bytes_with_zeros(self):
        data = bytes(range(128)) * 3
        self.assertEqual(library.md5(data), hashlib.md5(data).hexdigest())

    def test_decoded_bytes_keep_their_zeros(self):
        size = ctypes.c_size_t()
        buffer = library.call("qncBase64Decode", b"AAECAw==", ctypes.byref(size))
        self.assertEqual(ctypes.string_at(buffer, size.value), b"\0\1\2\3")
        library.qnFreeMem(buffer)


class Additions(unittest.TestCase):
    def test_digest_of_pieces_is_pythons_own(self):
        pieces = [bytes(range(256)), b"", b"\0" * 1000]
        self.assertEqual(library.digest(2, pieces), hashlib.sha256(b"".join(pieces)).hexdigest())

    def test_exact_projection_of_the_districts_comes_back(self):
        points = [(float(row["longitude"]), float(row["latitude"])) for row in expected_rows()]
        flat = (ctypes.c_double * (2 * len(points)))(*(x for point in points for x in point))
        system = library.call("qncTransverseMercatorFromEpsg", 4526)
        library.qncTransverseMercatorForward(system, flat, flat, len(points))
        self.assertTrue(all(30e6 < east < 46e6 for east in flat[0::2]))
        library.qncTransverseMercatorInverse(system, flat, flat, len(points))
        library.qncTransverseMercatorFree(system)
        for (lon, lat), lon2, lat2 in zip(points, flat[0::2], flat[1::2]):
            self.assertAlmostEqual(lon, lon2, places=9)
            self.assertAlmostEqual(lat, lat2, places=9)

    def test_similarity_of_points_and_its_residuals(self):
        doubles = ctypes.c_double * 6
        source = doubles(0, 0, 100, 0, 0, 100)
        target = doubles(10, 20, 110, 20, 10, 120)
        parameters = (ctypes.c_double * 4)()
        residuals = doubles()
        library.call("qncEstimateSimilarity", source, target, 3, parameters, residuals, None)
        for found, expected in zip(parameters, (10, 20, 1, 0)):
            self.assertAlmostEqual(found, expected, places=9)
        self.assertLess(max(map(abs, residuals)), 1e-9)
        with self.assertRaises(QuarnError) as raised:
            library.call("qncEstimateSimilarity", source, target, 1, parameters, None, None)
        self.assertEqual(raised.exception.code, 5)

    def test_angles_go_both_ways(self):
        angle = ctypes.c_double()
        self.assertEqual(library.qncReadAngle("114°03'27.36\"E".encode(), angle), 1)
        self.assertAlmostEqual(angle.value, 114.0576, places=12)
        text = library.call("qncWriteAngle", angle, 2, None)
        self.assertEqual(ctypes.string_at(text), b"114d03'27.36\"")
        library.qnFreeMem(text)

    def test_csv_with_semicolons_is_read_as_pythons_own_reader_does(self):
        text = 'a;"b;\n""c"""\n1;2\n'
        csv_text = library.call("qncCsvTextFromMemory", text.encode(), len(text), b";")
        rows = []
        while library.call("qncCsvTextNextRow", csv_text) == 1:
            rows.append([library.qncCsvTextField(csv_text, i, None).decode()
                         for i in range(library.qncCsvTextCount(csv_text))])
        library.qncCsvTextClose(csv_text)
        self.assertEqual(rows, list(csv.reader(io.StringIO(text), delimiter=";")))

    def test_call_to_a_port_without_a_server_raises(self):
        with self.assertRaises(QuarnError) as raised:
            library.get("http://127.0.0.1:1/", deadline=5000)
        self.assertEqual(raised.exception.code, 12029)

    def test_call_brings_status_and_body(self):
        class Handler(http.server.BaseHTTPRequestHandler):
            def do_GET(self):
                self.send_response(404)
                self.end_headers()
                self.wfile.write(b"\0no")

            def log_message(self, *_):
                pass

        with http.server.HTTPServer(("127.0.0.1", 0), Handler) as server:
            threading.Thread(target=server.handle_request).start()
            url = f"http://127.0.0.1:{server.server_port}/x"
            self.assertEqual(library.get(url, deadline=20000), (404, b"\0no"))


    def test_call_tells_its_progress_and_is_ended_by_it(self):
        class Handler(http.server.BaseHTTPRequestHandler):
            def do_GET(self):
                self.send_response(200)
                self.send_header("Content-Length", "5")
                self.end_headers()
                self.wfile.write(b"tiles")

            def log_message(self, *_):
                pass

        seen = []

        def progress(_, received, total):
            seen.append((received, total))
            return 0

        callback = FUNCTIONS["qncHttpCallSetProgress"][1][1](progress)
        with http.server.HTTPServer(("127.0.0.1", 0), Handler) as server:
            threading.Thread(target=server.handle_request).start()
            url = f"http://127.0.0.1:{server.server_port}/x".encode()
            call = library.call("qncHttpCallNew", b"GET", url)
            library.qncHttpCallSetProgress(call, callback, None)
            with self.assertRaises(QuarnError) as raised:
                library.call("qncHttpCallSend", call)
            library.qncHttpCallFree(call)
        self.assertEqual(raised.exception.code, 12017)
        self.assertEqual(seen[-1][1], 5)


class Sample(unittest.TestCase):
    def test_prints_the_districts(self):
        output = subprocess.run(
            [sys.executable, "-B", os.path.join(SAMPLES, "districts.py"), LIBRARY_PATH, DISTRICTS],
            capture_output=True, check=True, encoding="utf-8",
            env={**os.environ, "PYTHONIOENCODING": "utf-8"}).stdout.splitlines()
        self.assertEqual(output[0], f"{len(expected_rows())} districts")
        self.assertIn("110101 东城区: east", output[3])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
