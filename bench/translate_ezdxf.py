#!/usr/bin/python3
"""Translates a drawing with ezdxf in one pass with a dict: the measure for `kelvara translate`.

It does the same work as well as Python can: the dictionary is read with one query, every text is
looked up once, and the drawing is saved. It compares nothing afterwards.
"""
import argparse
import sqlite3

import ezdxf

from walk_ezdxf import Walk


def read_dictionary(path, source, target):
    connection = sqlite3.connect(path)
    keys = dict(connection.execute("SELECT LANG_DESCR, LANG_KEY FROM BDLANGUAGE"))
    columns = [f"LANGUAGE{keys.get(name, name)}" for name in (source, target)]
    terms = {}
    for text, translation in connection.execute(
            f"SELECT {columns[0]}, {columns[1]} FROM BDTRANSLATOR ORDER BY TRANS_KEY"):
        terms.setdefault(text, translation)
    return {text: translation for text, translation in terms.items() if translation}


class Translator(Walk):
    def __init__(self, doc, terms):
        super().__init__(doc)
        self.terms = terms

    def new_text(self, _, text):
        return self.terms.get(text.strip())

    def new_string(self, _entity, _application, _name, text, _alone):
        return self.terms.get(text.strip())


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    for name in ("drawing", "database", "source", "target", "out"):
        parser.add_argument(name)
    options = parser.parse_args()
    terms = read_dictionary(options.database, options.source, options.target)
    translator = Translator(ezdxf.readfile(options.drawing), terms)
    translator.run()
    translator.doc.saveas(options.out)
    print(f"{translator.changed} strings changed")


if __name__ == "__main__":
    main()
