"""Fills a project's database with samples by chance, many of them faulty, each in a borehole of its own.

usage: faulty_samples.py DATABASE COUNT
"""
import random
import sqlite3
import sys

chance = random.Random(7)
database = sqlite3.connect(sys.argv[1])


def faulty(value, *faults):
    """The value, or now and then one of the faults."""
    return chance.choice(faults) if chance.random() < 0.02 else value


for number in range(int(sys.argv[2])):
    borehole = faulty(f"B{number}", f"B/{number}", f"*B{number - 1}", f"b{number - 1}", f"B{number} ")
    sample = faulty("1", "=", "1234567890123", "1~2", "")
    sizes = sorted((chance.choice([20, 10, 5, 2, 1, 0.5, 0.25, 0.075, 0.01, 0]) for _ in range(
        chance.randint(1, 8))), reverse=True)
    masses = [round(chance.uniform(0, 50), 2) for _ in sizes]
    total = faulty(sum(masses) + chance.choice([0, 0, 1, 5e-6]), None, 0, -1, "ten", sum(masses) - 0.001)
    if chance.random() > 0.01:
        database.execute("INSERT INTO Z_c_KeFen (GCSY, ZKBH, QYBH, KLTYZL, KLD10) VALUES (1, ?, ?, ?, ?)",
                         (borehole, sample, total, faulty(None, "none")))
    for item, (size, mass) in enumerate(zip(sizes, masses)):
        database.execute("INSERT INTO Z_c_KeFenCSXM VALUES (1, ?, ?, ?, ?, ?)",
                         (borehole, sample, item, faulty(size, None, -1), faulty(mass, None)))
database.commit()
