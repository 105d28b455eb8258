#!/bin/sh
exec /usr/lib/wine/wine64 "$@"
