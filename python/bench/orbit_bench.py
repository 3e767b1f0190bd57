#!/usr/bin/env python3
"""10^5 orbit commands from Python against the same loop in C++, through one controller and connection.

usage: PYTHONPATH=<dir holding the vistral package> orbit_bench.py [--count N] [--repeat R] [--receiver]

Prints each side's best time per command and the ratio Python/C++. With --receiver an emulated viewer joins
the execution, so that every command is queued for a second federate (and taken by it between runs).
"""
import argparse
import time

import vistral


def main():
    ap = argparse.ArgumentParser()
    ap.add_argument("--count", type=int, default=100_000)
    ap.add_argument("--repeat", type=int, default=5)
    ap.add_argument("--receiver", action="store_true")
    args = ap.parse_args()

    with vistral.Connection("orbit-bench", "app") as conn, vistral.Connection("orbit-bench", "viewer") as vconn:
        emulator = vistral.Emulator(vconn, "vistral-1") if args.receiver else None
        ctl = vistral.RemoteController(conn, "vistral-1")

        def keywords(n):
            set_orbit = ctl.set_orbit_mode
            start = time.perf_counter()
            for i in range(n):
                set_orbit(attach="tank-1", radius=100.0 + i % 50, heading=0.5)
            return time.perf_counter() - start

        def positional(n):
            set_orbit = ctl.set_orbit_mode
            start = time.perf_counter()
            for i in range(n):
                set_orbit("tank-1", 100.0 + i % 50, 0.5)
            return time.perf_counter() - start

        loops = {"python, keywords": keywords, "python, positional": positional,
                 "c++": lambda n: vistral._orbit_loop(ctl, n)}
        best = dict.fromkeys(loops, float("inf"))
        for _ in range(args.repeat):
            for name, loop in loops.items():
                best[name] = min(best[name], loop(args.count))
                if emulator:
                    vconn.process_incoming()
        print("orbit commands: %d, best of %d%s" % (args.count, args.repeat,
                                                     ", a viewer receiving" if emulator else ""))
        for name, seconds in best.items():
            print("%-20s %.3f s  %5.0f ns/command  ratio to c++ %.2f" % (
                name, seconds, seconds / args.count * 1e9, seconds / best["c++"]))


if __name__ == "__main__":
    main()
