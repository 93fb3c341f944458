#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Starts nginx on free ports of 127.0.0.1 for the duration of one program, over HTTP and over HTTPS
# with a certificate for localhost made for the occasion. The program finds the ports in
# QUARNFC_HTTP_PORT and QUARNFC_HTTPS_PORT, and in QUARNFC_UNTRUSTED_HTTPS_PORT one of the same kind
# that tests never trust (the platform keeps connections that were trusted once). The checksum of
# the large file is in QUARNFC_LARGE_MD5.
# Usage: run-with-nginx.sh PROGRAM [ARGUMENT...]   exits with the program's code
set -euo pipefail

# Where the port that nginx was given was taken by another program meanwhile, another is tried.
attempts=20
large_bytes=$((100 * 1024 * 1024))
zero_key=00000000000000000000000000000000

root=$(mktemp -d "${TMPDIR:-/tmp}/quarnfc-nginx.XXXXXX")
nginx_pid=
# shellcheck disable=SC2317 # called by the trap
stop() {
  if [ -n "$nginx_pid" ]; then
    kill "$nginx_pid" 2>/dev/null || true
    wait "$nginx_pid" 2>/dev/null || true
  fi
  rm -rf "$root"
}
trap stop EXIT

nginx=$(command -v nginx || echo /usr/sbin/nginx)
if [ ! -x "$nginx" ]; then
  echo "run-with-nginx.sh: nginx is not installed (Debian package nginx-light)" >&2
  exit 1
fi

write_files() {
  mkdir -p "$root/www/upload" "$root/tmp"
  # Bytes without a pattern, the same every time.
  openssl enc -aes-128-ctr -K "$zero_key" -iv "$zero_key" -in /dev/zero 2>/dev/null |
    head -c "$large_bytes" >"$root/www/large.bin" || true
  printf 'first line\r\nsecond line\n\nlast line' >"$root/www/lines.txt"
  printf 'small content' >"$root/www/small.txt"
  printf 'user:%s\n' "$(openssl passwd -apr1 secret)" >"$root/passwords"
  openssl req -x509 -newkey rsa:2048 -nodes -days 2 -subj /CN=localhost \
    -addext subjectAltName=DNS:localhost \
    -keyout "$root/key.pem" -out "$root/certificate.pem" 2>/dev/null
}

write_config() {
  cat >"$root/nginx.conf" <<CONFIG
daemon off;
master_process off;
user root;
pid $root/nginx.pid;
error_log $root/error.log;
events { worker_connections 512; }
http {
  access_log off;
  default_type application/octet-stream;
  types { text/plain txt; }
  client_body_temp_path $root/tmp/body;
  proxy_temp_path $root/tmp/proxy;
  fastcgi_temp_path $root/tmp/fastcgi;
  uwsgi_temp_path $root/tmp/uwsgi;
  scgi_temp_path $root/tmp/scgi;
  client_max_body_size 0;
  keepalive_requests 100000;
  server {
    listen 127.0.0.1:$1;
    listen 127.0.0.1:$2 ssl;
    listen 127.0.0.1:$3 ssl;
    ssl_certificate $root/certificate.pem;
    ssl_certificate_key $root/key.pem;
    root $root/www;
    location = /verb { return 200 \$request_method; }
    location = /agent { return 200 \$http_user_agent; }
    location = /echo-header { return 200 \$http_x_test; }
    location = /empty { return 204; }
    location = /not-modified { return 304; }
    location = /teapot { return 418 "short and stout"; }
    location = /redirect { return 302 /small.txt; }
    location = /redirect-far { return 301 http://127.0.0.1:$1/redirect; }
    location = /set-cookie { add_header Set-Cookie "flavour=vanilla; path=/"; return 200 set; }
    location = /cookie { return 200 \$http_cookie; }
    location = /chunked { ssi on; ssi_types *; default_type text/html; alias $root/www/lines.txt; }
    location = /compressed {
      gzip on;
      gzip_types *;
      gzip_min_length 1;
      alias $root/www/lines.txt;
    }
    location = /scheme { return 200 \$scheme; }
    location = /connection { return 200 "\$connection \$connection_requests"; }
    location /private { auth_basic secret; auth_basic_user_file $root/passwords; return 200 in; }
    location = /private-file {
      auth_basic secret;
      auth_basic_user_file $root/passwords;
      alias $root/www/small.txt;
    }
    location /upload/ { dav_methods PUT DELETE; client_body_buffer_size 1m; }
  }
}
CONFIG
}

free_port() { echo $((20000 + (RANDOM * 32768 + RANDOM) % 40000)); }

answers() { (exec 3<>"/dev/tcp/127.0.0.1/$1") 2>/dev/null; }

start_nginx() {
  local attempt
  for ((attempt = 0; attempt < attempts; attempt++)); do
    http_port=$(free_port)
    https_port=$(free_port)
    untrusted_port=$(free_port)
    write_config "$http_port" "$https_port" "$untrusted_port"
    "$nginx" -p "$root" -c "$root/nginx.conf" 2>>"$root/error.log" &
    nginx_pid=$!
    for _ in {1..100}; do
      kill -0 "$nginx_pid" 2>/dev/null || break
      if [ -f "$root/nginx.pid" ] && answers "$http_port" && answers "$https_port"; then return; fi
      sleep 0.05
    done
    kill "$nginx_pid" 2>/dev/null || true
    wait "$nginx_pid" 2>/dev/null || true
  done
  echo "run-with-nginx.sh: nginx does not start:" >&2
  cat "$root/error.log" >&2
  exit 1
}

write_files
start_nginx
export QUARNFC_HTTP_PORT=$http_port QUARNFC_HTTPS_PORT=$https_port
export QUARNFC_UNTRUSTED_HTTPS_PORT=$untrusted_port
QUARNFC_LARGE_MD5=$(md5sum "$root/www/large.bin" | cut -d' ' -f1)
export QUARNFC_LARGE_MD5
export QUARNFC_SERVER_FILES=$root/www

status=0
"$@" || status=$?
exit "$status"
