# SPDX-License-Identifier: MIT
# Data: CSV rows to JSON, digests of the result, Base64 and Base32 of a digest, a time stamp.
# shellcheck shell=bash disable=SC2154  # $project, $scratch, qn, title and say come from demo.sh

title "CSV files, digests, Base64 and time"
say "The districts of China, once in code page 936 and once in UTF-8: 3,508 rows either way."
qn csv columns data/districts-utf8.csv
qn csv head -n 4 data/districts-utf8.csv
qn csv count data/districts-gbk.csv
qn csv count data/districts-utf8.csv

say "Both files become the same JSON."
qn csv to-json -o "$scratch/districts.json" data/districts-utf8.csv
qn csv to-json -o "$scratch/districts-gbk.json" data/districts-gbk.csv
qn hash crc64 "$scratch/districts.json" "$scratch/districts-gbk.json"

say "Digests of the JSON text."
qn hash md5 "$scratch/districts.json"
qn hash hmac-sha256 --key "map sheets" "$scratch/districts.json"

say "The digest's line as Base64 and in the library's Base32, and back."
qn hash hmac-sha256 --key "map sheets" "$scratch/districts.json" |
  sed -n 's/^\([0-9a-f]\{64\}\) .*/\1/p' > "$scratch/digest.txt"
qn base64 encode "$scratch/digest.txt"
qn base32 encode -o "$scratch/digest.b32" "$scratch/digest.txt"
qn base32 decode "$scratch/digest.b32"

say "When it was done, and a time there and back."
qn time now
qn time parse "2024-01-05 08:30:00"
qn time parse "2024-01- 05"
