#!/usr/bin/env python3
"""Prints the medians of a Google Benchmark result file, and the ratios that matter."""
import json
import re
import sys

RATIOS = [
    ("elimination_literal/storey", "elimination/storey"),
    ("elimination_literal/shuffled", "elimination/shuffled"),
    ("eigen_sparse/storey", "elimination/storey"),
    ("eigen_sparse/shuffled", "elimination/shuffled"),
    ("analysis_literal/storey", "analysis/storey"),
    ("analysis_literal/shuffled", "analysis/shuffled"),
    ("undo/limit", "picture_model/limit"),
    ("quick_test/limit", "analysis/storey"),
    ("check/limit", "analysis/storey"),
    ("start/window", "start/toolkit"),
    ("start/file_analysis_M/limit", "start/window"),
    ("batch_process/limit", "batch_model/limit"),
    ("batch_files/limit", "batch_model/limit"),
    ("batch_jobs_1/limit", "batch_jobs_2/limit"),
]
for view in ("model", "M", "Q", "N", "D"):
    RATIOS += [(f"picture_{view}/limit", f"picture_{view}_{other}/limit") for other in ("plain", "floor")]

with open(sys.argv[1], encoding="utf-8") as file:
    rows = json.load(file)["benchmarks"]
median = {re.sub("/(manual|real)_time$", "", row["run_name"]): row["real_time"]
          for row in rows if row.get("aggregate_name") == "median"}

for name, time in median.items():
    print(f"{name:32}{time:12.1f} us")
print()
for slow, fast in RATIOS:
    print(f"{slow + ' : ' + fast:60}{median[slow] / median[fast]:8.2f}")
