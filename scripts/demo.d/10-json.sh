# SPDX-License-Identifier: MIT
# JSON: what real documents are made of, values by path, an edit, both encodings, errors.
# shellcheck shell=bash disable=SC2154  # $project, $scratch, qn, title and say come from demo.sh

title "JSON documents"
say "A settings file in code page 936: what it is made of, and some values by path."
qn json shape data/map-settings-gbk.json
qn json get data/map-settings-gbk.json 'server\host'
qn json get data/map-settings-gbk.json '窗口\标题'
qn json get data/map-settings-gbk.json '坐标系'

say "Two members get new values, one is new; the result is saved in the code page."
qn json set -o "$scratch/settings.json" data/map-settings-gbk.json 'server\port' 9090
qn json set "$scratch/settings.json" '窗口\标题' '湘江新区地下管线'
qn json set "$scratch/settings.json" 'server\proxy' '{"host": "proxy.example", "port": 3128}'

say "The same document laid out anew, as UTF-8 with mark, and in the code page again: equal bytes."
qn json format -o "$scratch/settings.json" "$scratch/settings.json"
qn json format --utf8 -o "$scratch/settings-utf8.json" "$scratch/settings.json"
qn json check "$scratch/settings.json"
qn json check "$scratch/settings-utf8.json"
qn json get "$scratch/settings-utf8.json" server
qn json get "$scratch/settings-utf8.json" '窗口\标题'
qn json format --to code-page -o "$scratch/settings-back.json" "$scratch/settings-utf8.json"
qn hash md5 "$scratch/settings.json" "$scratch/settings-back.json"

say "A large document: the border of Canada, 2 MB of coordinates."
qn json shape tests/data/json/canada.json

say "A hundred messages of a social network, in UTF-8 without mark."
qn json shape tests/data/json/twitter.json
qn json get tests/data/json/twitter.json /search_metadata/max_id_str

say "A file that someone broke: a colon is missing in its line 6."
sed '6s/"port":/"port"/' data/map-settings-gbk.json > "$scratch/broken.json"
qn json check "$scratch/broken.json"

say "The same for a program, and as the library's error document, which its lenient reader makes."
qn json check --json "$scratch/broken.json"
qn json check --lenient --json "$scratch/broken.json"
qn json check --lenient --json "$scratch/missing.json"
