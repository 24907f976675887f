#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# The whole road of an update by command, from the recorded season 2006 to a program folder that lacked it, and what the
# commands answer on the way when something is wrong.
# usage: road.sh BINARIES DATA SAMPLE
set -euo pipefail
bin=$1 data=$2 sample=$3
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
fault() { echo "FAULT: $*"; exit 1; }
status() { local answer=0; "$@" >answer 2>&1 || answer=$?; echo "$answer"; }
zip_status() { status "$bin/Zip" --folder programme --no-restart; }

mkdir an2006 contenu serveur
"$bin/sample-seasons" "$data" an2006 2006
cp an2006/f12006.ini an2006/f1ARCHIVES.ini contenu/
"$bin/publier" cle ma.cle >serveurs.ligne
[[ $(stat -c %a ma.cle) == 600 ]] || fault "the secret key is open to others"
[[ $(status "$bin/publier" cle ma.cle) == 1 ]] || fault "a key was overwritten"
"$bin/publier" miseajour contenu --cle ma.cle --vers serveur --numero 2
"$bin/publier" verifier serveur/miseajour.zip --cle ma.cle.pub | grep -q '  f12006.ini$' || fault "the season isn't in the archive"
if command -v minisign unzip >/dev/null; then
    (cd contenu && unzip -q ../serveur/miseajour.zip 'MANIFESTE*' && sha256sum --quiet -c MANIFESTE &&
        minisign -q -V -p ../ma.cle.pub -m MANIFESTE && rm MANIFESTE*) || fault "others don't accept the archive"
fi

cp -R "$sample" programme
{ echo '[serveurs]'; cat serveurs.ligne; } >programme/serveurs.ini
cp serveur/miseajour.zip programme/
[[ $(zip_status) == 0 ]] || fault "refused: $(cat answer)"
cmp an2006/f12006.ini programme/f12006.ini
grep -q '^nbpts1=134' programme/f12006.ini || fault "the champion of 2006 lacks his 134 points"
cmp "$sample/f1ARCHIVES.ini" programme/Sauvegardes/f1ARCHIVES.*.ini
[[ ! -e programme/miseajour.zip ]] || fault "the archive is still there"
[[ $(zip_status) == 0 ]] || fault "no archive is no error"

"$bin/publier" miseajour contenu --cle ma.cle --vers programme --numero 1
[[ $(zip_status) == 1 && $(cat answer) == *"plus ancienne"* ]] || fault "an older edition: $(cat answer)"
[[ $(cat programme/.circuidex-avis) == "$(cat answer)" && -e programme/miseajour.zip ]] || fault "the next start isn't told"
"$bin/publier" miseajour contenu --vers programme
[[ $(zip_status) == 1 && $(cat answer) == *"pas signée"* ]] || fault "an unsigned one: $(cat answer)"

echo 'Monaco2006.avi | Grand Prix de Monaco 2006' >liste
"$bin/publier" videos liste --vers serveur
[[ $(iconv -f cp1252 serveur/f1galerievideo.ini | tr -d '\r') == $'[vid]\ndescription1=Grand Prix de Monaco 2006\nN°1=Monaco2006.avi' ]] ||
    fault "the list of videos"
echo '../circuidex | x' >liste
[[ $(status "$bin/publier" videos liste --vers serveur) == 1 ]] || fault "a video that is none"
ln -s /etc/passwd contenu/a.txt
[[ $(status "$bin/publier" miseajour contenu --vers serveur) == 1 && ! -e serveur/miseajour.zip.part ]] || fault "a link was packed"
echo "The season 2006 came by the update."
