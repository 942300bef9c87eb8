#!/usr/bin/env python3
"""Calls vkreport, and prints a few facts of this machine and what is missing.

    vkreport.py PROGRAM [--time-limit SECONDS]

PROGRAM is the path of vkreport. docs/facts.md has the keys of all facts. Exit code 0: the report is
complete. 3: sections are missing. 1: there is no report.
"""
import argparse
import json
import subprocess
import sys


class NoReport(Exception):
    """The text says why."""


def make_report(program, seconds):
    """Runs vkreport. Returns its JSON."""
    command = [program, '--format', 'json', '--time-limit', str(seconds)]
    # vkreport keeps the time limit itself. This one is the last resort, and gives nothing.
    last_resort = seconds + 30 if seconds else None
    try:
        result = subprocess.run(command, stdin=subprocess.DEVNULL, capture_output=True, timeout=last_resort, check=False)
    except subprocess.TimeoutExpired as error:
        raise NoReport(f'{program} did not end within {last_resort:g} s') from error
    except OSError as error:
        raise NoReport(f'{program} cannot be started: {error.strerror}') from error
    errors = result.stderr.decode(errors='replace').strip()
    if result.returncode == 1:
        raise NoReport(f'nothing could be had:\n{errors}')
    if result.returncode == 2:
        raise NoReport(f'{program} does not know these options, perhaps it is an older version:\n{errors}')
    if result.returncode not in (0, 3):
        raise NoReport(f'{program} ended with exit code {result.returncode}:\n{errors}')
    return json.loads(result.stdout)


def text(fact):
    """A fact is a text, or a list of texts, or has a value for programs and a text."""
    if isinstance(fact, list):
        return ', '.join(fact)
    return fact['text'] if isinstance(fact, dict) else fact


def print_facts(sections):
    """A section or a fact may be missing: the machine may not have it, or a call failed."""
    windows = sections.get('windowsVersion', {}).get('facts', {})
    memory = sections.get('memoryInfo', {}).get('facts', {})
    print('Windows:  ', text(windows.get('name', 'unknown')), text(windows.get('fromRegistry', '')))
    for processor in sections.get('processorRegistryInfo', {}).get('processors', [])[:1]:
        print('Processor:', text(processor.get('processorNameString', 'unknown')))
    print('Memory:   ', text(memory.get('totalPhys', 'unknown')))
    for drive in sections.get('diskInformation', {}).get('drives', []):
        if 'free' in drive and 'total' in drive:
            # Numbers of 64 bits are texts in JSON, because some programs read numbers as double.
            part = 100 * int(drive['free']['value']) / max(1, int(drive['total']['value']))
            print('Drive:    ', text(drive['root']), f"{part:.0f} % of {text(drive['total'])} are free")


def print_missing(incomplete):
    for missing in incomplete['missing']:
        print('Missing:  ', missing['section'], missing['reason'], missing.get('code', ''))


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    # A path, no bare name: Windows would search that in several folders, also in the current one.
    parser.add_argument('program', metavar='PROGRAM')
    parser.add_argument('--time-limit', type=float, default=60, metavar='SECONDS')
    options = parser.parse_args()
    sys.stdout.reconfigure(errors='replace')  # a code page of Windows may lack letters of a fact
    try:
        report = make_report(options.program, options.time_limit)
    except NoReport as error:
        print(f'There is no report: {error}', file=sys.stderr)
        return 1
    print_facts({section['name']: section for section in report['reports'][0]['sections']})
    if 'incomplete' not in report:
        return 0
    print_missing(report['incomplete'])
    return 3


if __name__ == '__main__':
    sys.exit(main())
