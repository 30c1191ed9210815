#!/usr/bin/env python3
"""csv_files.py FOLDER: the temperatures of all CSV files of a folder, from °C to kelvins."""

import sys

import dask.dataframe

from varnix_value import Converter

to_kelvin = Converter('degC', 'K')
frame = dask.dataframe.read_csv(f'{sys.argv[1]}/*.csv')
frame['temperature'] = frame['temperature'].map_partitions(to_kelvin)
result = frame.groupby('sensor')['temperature'].max().compute().sort_index()
for sensor, temperature in result.items():
    print(f'{sensor}: {temperature} K')
