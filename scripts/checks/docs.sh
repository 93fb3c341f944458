#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# The documentation: the reference without a warning, links, translations, families, functions.
# The last line tells how many pages and functions there are.
set -euo pipefail
source "$(dirname "$0")/../lib.sh"

configure_preset linux
build_preset linux reference
"$project/scripts/check-docs.sh" "$project/build/linux/reference/xml" | paste -sd ';' | sed 's/;/, /g'
