#!/usr/bin/env python3
"""Prints sample data of one borehole, B1, with the given number of samples, as the import reads it.

usage: make_samples.py COUNT
The gradings drift from gravelly to silty sand so that no two charts are alike.
"""
import sys

SIZES = [20, 10, 5, 2, 1, 0.5, 0.25, 0.1, 0.075, 0]


def main():
    print("borehole,sample,depth,thickness,method,total,size,mass")
    for number in range(1, int(sys.argv[1]) + 1):
        drift = (number % 97) / 97
        weights = [1 + 4 * abs(drift - i / len(SIZES)) for i in range(len(SIZES))]
        masses = [round(500 * w / sum(weights), 1) for w in weights]
        masses[-1] = round(500 - sum(masses[:-1]), 1)
        for size, mass in zip(SIZES, masses):
            print(f"B1,{number},{number * 0.5:.2f},0.2,筛析法,500,{size},{mass}")


if __name__ == "__main__":
    main()
