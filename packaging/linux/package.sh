#!/usr/bin/env bash
echo "not written yet" >&2
exit 1
