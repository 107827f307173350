#!/usr/bin/env python3
"""Writes a machine folder with music, playlists and the product's settings, for measurements."""

import argparse

from corpus import KINDS, Plan, kinds, make_corpus


def parse_arguments():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.ArgumentDefaultsHelpFormatter)
    parser.add_argument("--dir", required=True, default=argparse.SUPPRESS,
                        help="the machine's folder")
    parser.add_argument("--seed", type=int, help="seed of every random choice")
    parser.add_argument("--files", type=int, help="MP3 files below C:\\Music")
    parser.add_argument("--playlists", type=int, help="playlists in C:\\Playlists")
    parser.add_argument("--entries", type=int, help="entries of each playlist")
    parser.add_argument("--kinds", type=kinds, help="kinds in turn, from " + ",".join(KINDS))
    parser.add_argument("--plain-files", type=int, help="empty files below C:\\Data")
    parser.add_argument("--folders-depth", type=int,
                        help="nesting of the folders below C:\\Data")
    parser.add_argument("--list", dest="writes_list", action="store_true",
                        help="write the list file that a scan would leave")
    parser.set_defaults(**vars(Plan()))
    return parser.parse_args()


def main():
    options = vars(parse_arguments())
    make_corpus(options.pop("dir"), Plan(**options))


if __name__ == "__main__":
    main()
