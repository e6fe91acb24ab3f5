#!/usr/bin/env python3
"""Prints design values of the given number of layers, 1-1, 1-2 and so on, as the import reads them.

usage: make_layers.py COUNT
Classes and gradings are those of make_samples.py, as far as layers have the class.
"""
import sys

SIZES = [20, 10, 5, 2, 0.5, 0.25, 0.1, 0.075, 0.05, 0]
SUBS = 200  # of a main layer; the database's numbers end at 255


def main():
    print("main,sub,size,percent")
    for number in range(int(sys.argv[1])):
        drift = (number % 97) / 97
        weights = [1 + 4 * abs(drift - i / len(SIZES)) for i in range(len(SIZES))]
        percents = [round(100 * w / sum(weights), 1) for w in weights]
        percents[-1] = round(100 - sum(percents[:-1]), 1)
        for size, percent in zip(SIZES, percents):
            print(f"{number // SUBS + 1},{number % SUBS + 1},{size},{percent}")


if __name__ == "__main__":
    main()
