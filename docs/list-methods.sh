#!/usr/bin/env bash
# Writes docs/methods.md to the standard output: all methods and natives, from the tests' own tables of the contract.
set -euo pipefail
tables=$(cd "$(dirname "$0")/../tests/support" && pwd)
cat <<END
# The methods and natives of a core

What they mean, and what the codes in their names stand for, is told in [contract.md](contract.md).

## The $(wc -l <"$tables/services.txt") methods of \`morva.tovu1516e.RTIambassadorC2007\`

The exceptions are tested in the order in which they stand.

| method | signature | exceptions |
|---|---|---|
END
awk '{ name = $1; signature = $2; $1 = $2 = ""; sub(/^ +/, ""); gsub(/ /, ", "); print "| `" name "` | `" signature "` | " $0 " |" }' \
  "$tables/services.txt"
cat <<END

## The $(wc -l <"$tables/natives.txt") natives of \`morva.tovu1516e.FederateAmbassadorC2007\`

All of them have the signature \`([B)V\`.

END
sed 's/.*/- `&`/' "$tables/natives.txt"
