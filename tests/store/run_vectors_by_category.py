#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""run_vectors_by_category.py RUN_VECTORS ADAPTER: fails unless every category of recorded answers passes as a whole.

The category "delete" asks for an operation that the store doesn't offer, and must be refused rather than pass.
"""
import csv
import os
import subprocess
import sys

script, adapter = sys.argv[1:]
folder = os.path.dirname(script)
categories = set()
for part in ('read', 'write'):
    with open(os.path.join(folder, 'shared_%s.tsv' % part), encoding='ascii') as table:
        for row in csv.DictReader(table, delimiter='\t', quoting=csv.QUOTE_NONE):
            if row['status'] != 'quirk':
                categories.add(row['category'])

failed = []
for category in sorted(categories):
    run = subprocess.run([sys.executable, script, '--set', 'shared', '--only', category, '--show', '3', adapter],
                         stdout=subprocess.PIPE, text=True)
    if (run.returncode == 0) == (category == 'delete'):
        print(run.stdout)
        failed.append(category)
print('%d categories, failed: %s' % (len(categories), ', '.join(failed) or 'none'))
sys.exit(1 if failed or len(categories) < 10 else 0)
