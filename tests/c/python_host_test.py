# SPDX-License-Identifier: MIT
"""The flat C interface from Python. Usage: python_host_test.py LIBRARY PROJECT_FOLDER"""

import csv
import ctypes
import hashlib
import io
import os
import subprocess
import sys
import unittest

LIBRARY_PATH, PROJECT = sys.argv[1:3]
SAMPLES = os.path.join(PROJECT, "samples", "python")
DISTRICTS = os.path.join(PROJECT, "data", "districts-utf8.csv")
sys.path.insert(0, SAMPLES)

from quarnfc import Library, QuarnError  # noqa: E402

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
