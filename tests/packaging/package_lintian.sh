#!/usr/bin/env bash
# Debian's own check of packages finds neither an error nor a warning.
# package_lintian.sh DEB
set -euo pipefail

# The settings of this user or of this machine must not decide.
exec lintian --no-cfg --allow-root --fail-on error,warning "$1"
