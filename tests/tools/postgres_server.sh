#!/bin/bash
# A PostgreSQL server for tests, on the loopback address and a free port, with data in a folder of
# its own: postgres_server.sh FOLDER. Owner of everything is "keeper" with the password "secret".
#
# Prints "ready PORT" when it takes connections. Takes "stop" and "start" as lines of its input and
# answers each with "done" when that has happened. It ends with its input, also when the program that
# started it dies, and takes the server and the folder with it.
set -euo pipefail
folder=$1
bin=$(ls -d /usr/lib/postgresql/*/bin | sort -V | tail -1)

# The server refuses to run as root.
if [ "$(id -u)" -eq 0 ]; then
    chown nobody:nogroup "$folder"
    # By its text: the other user may not be let into the folder of the script.
    exec setpriv --reuid=nobody --regid=nogroup --clear-groups bash -c "$(cat "$0")" "$0" "$folder"
fi
cd "$folder"
export LC_ALL=C.UTF-8

free_port() {
    /usr/bin/python3 -c 'import socket; s = socket.socket(); s.bind(("127.0.0.1", 0)); print(s.getsockname()[1])'
}

start() {  # -w: returns when the server says that it is ready
    "$bin/pg_ctl" -s -w -D data -l server.log -o "-p $port" start
}

stop() { "$bin/pg_ctl" -s -w -D data -m fast stop; }

end() {
    stop 2>/dev/null || true
    cd /
    rm -rf "$folder" 2>/dev/null || rm -rf "$folder"/* || true
}
trap end EXIT

echo secret >password
"$bin/initdb" -D data -U keeper --pwfile=password -A scram-sha-256 -E UTF8 --locale=C.UTF-8 \
    --no-sync >initdb.log
cat >>data/postgresql.conf <<END
listen_addresses = '127.0.0.1'
unix_socket_directories = ''
fsync = off
END
# Another program may take the port first.
for _ in 1 2 3 4 5; do
    port=$(free_port)
    start && break
done
echo "ready $port"
while read -r command; do
    "$command"
    echo done
done
