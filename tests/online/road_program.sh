#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# The whole road of an update through the program: a server on this machine gives the signed season 2006, the update
# screen fetches it, the extractor puts it in place and starts the program again, and the season is there.
# usage: road_program.sh BINARIES DATA SAMPLE
set -euo pipefail
bin=$1 data=$2 sample=$3
work=$(mktemp -d) server= program=
finish() { kill $server $program 2>/dev/null || true; wait 2>/dev/null || true; rm -rf "$work"; }
trap finish EXIT
cd "$work"
fault() { echo "FAULT: $*"; exit 1; }
drive() { programme/circuidex-driver programme; }
started() { # the pid of the program in our folder
    for process in /proc/[0-9]*; do
        if [[ $(readlink "$process/exe" 2>/dev/null) == "$work/programme/circuidex" ]]; then echo "${process#/proc/}"; fi
    done
}

mkdir an2006 contenu serveur
"$bin/sample-seasons" "$data" an2006 2006
cp an2006/f12006.ini an2006/f1ARCHIVES.ini contenu/
"$bin/publier" cle ma.cle >serveurs.ligne
"$bin/publier" miseajour contenu --cle ma.cle --vers serveur
echo '<h1>2006</h1><p>La saison 2006 est en ligne.</p>' >serveur/progtelech.htm
python3 -u -m http.server --bind 127.0.0.1 --directory serveur 0 >serveur.journal 2>&1 &
server=$!
for _ in {1..100}; do grep -q ' port ' serveur.journal && break || sleep 0.05; done
port=$(sed -n 's/.* port \([0-9]*\) .*/\1/p' serveur.journal)

cp -R "$sample" programme
cp "$bin"/{circuidex,circuidex-driver,Zip} programme/
{ echo '[serveurs]'; echo "maj=http://127.0.0.1:$port"; cat serveurs.ligne; } >programme/serveurs.ini
printf '%s\n' start 'read f12006.ini [N°] nbpts1' 'press Form1.Label72' settle 'get Form67.page' \
    'press Form67.Command1' settle calls windows quit | drive | tee answers
[[ $(sed -n 2p answers) == "" ]] || fault "the season was there before"
grep -qx "start $work/programme/Zip	end" answers || fault "the extractor wasn't started"
[[ -s programme/miseajour.zip ]] || fault "nothing was fetched"

QT_QPA_PLATFORM=offscreen programme/Zip || fault "the extractor refused"
for _ in {1..200}; do program=$(started); [[ -n $program ]] && break || sleep 0.05; done
[[ -n $program ]] || fault "the program wasn't started again"
echo "Zip: status 0; $(readlink /proc/"$program"/exe) runs"
[[ ! -e programme/miseajour.zip ]] || fault "the archive is still there"
cmp an2006/f12006.ini programme/f12006.ini
printf '%s\n' start settle 'set Form1.an 2006' 'key Form1.an Enter' 'read f12006.ini [N°] nbpts1' 'get Form1.gp' \
    'get Form1.Text31' 'get Form1.nonconservees' quit | drive | tee answers
[[ $(sed -n 5p answers) == 134 ]] || fault "the champion of 2006 lacks his 134 points"
sed -n 's/^.*\] "/the server was asked: "/p' serveur.journal
echo "The season 2006 came by the update screen."
