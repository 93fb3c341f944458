#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Every shell script is clean under shellcheck.
set -euo pipefail
cd "$(dirname "$0")/../.."

mapfile -t scripts < <(git ls-files -z | xargs -0 grep -lE '^#!.*\bbash|^# shellcheck shell=bash')
shellcheck "${scripts[@]}"
printf '%d scripts are clean under shellcheck\n' "${#scripts[@]}"
