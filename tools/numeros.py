"""The numbers of a command line, as the programs read theirs: plain decimals and nothing else. Python's own
reader takes blanks, underscores, leading zeros and other alphabets' digits."""
import argparse
import re

PLAIN = re.compile('0|-?[1-9][0-9]*')


def plain_number(text):
    """The number; a ValueError for anything but one."""
    if not PLAIN.fullmatch(text):
        raise ValueError(f'no es un número entero sin ceros por delante: {text!r}')
    return int(text)


def number(text):
    """The same for an argument of argparse's, which tells what it was given."""
    try:
        return plain_number(text)
    except ValueError as wrong:
        raise argparse.ArgumentTypeError(str(wrong)) from None


def positive(text):
    """One that is greater than zero."""
    value = number(text)
    if value < 1:
        raise argparse.ArgumentTypeError(f'ha de ser mayor que cero: {text!r}')
    return value
