"""The packages of this machine as dpkg knows them: what they depend on, and which files are theirs."""

import pathlib
import re

DPKG = pathlib.Path("/var/lib/dpkg")


def names_of(relation):
    """The names of alternatives such as "awk | mawk:any (>= 1.3)"."""
    return [re.match(r"[^\s:(]+", each.strip())[0] for each in relation.split("|")]


class Package:
    def __init__(self, stanza):
        self.stanza = stanza
        fields = dict(re.findall(r"^([\w-]+): ?(.*)$", stanza, re.MULTILINE))
        self.name = fields["Package"]
        self.architecture = fields.get("Architecture")
        self.is_installed = fields["Status"].endswith(" ok installed")
        self.is_everywhere = fields.get("Essential") == "yes" or fields.get("Priority") == "required"
        self.provided = [names_of(each)[0] for each in fields.get("Provides", "").split(",") if each]
        needs = ",".join(fields.get(name, "") for name in ("Pre-Depends", "Depends"))
        self.needs = [names_of(each) for each in needs.split(",") if each.strip()]

    def files(self):
        lists = [DPKG / f"info/{self.name}.list", DPKG / f"info/{self.name}:{self.architecture}.list"]
        [found] = [each for each in lists if each.exists()]
        return found.read_text().splitlines()


class InstalledPackages:
    def __init__(self):
        stanzas = (DPKG / "status").read_text().split("\n\n")
        packages = [package for package in map(Package, filter(str.strip, stanzas)) if package.is_installed]
        self.by_name = {package.name: package for package in packages}
        self.providers = {}
        for package in packages:
            for name in package.provided:
                self.providers.setdefault(name, []).append(package)

    def bare(self):
        """Those that every system has."""
        return [package.name for package in self.by_name.values() if package.is_everywhere]

    def with_all_they_need(self, names):
        """The packages and, again and again, those that they depend on, without what is merely recommended."""
        found, waiting = {}, [[name] for name in names]
        while waiting:
            for package in self.one_of(waiting.pop()):
                if package.name not in found:
                    found[package.name] = package
                    waiting += package.needs
        return found.values()

    def one_of(self, names):
        """The first alternative that is installed; of a virtual package, all that provide it."""
        for name in names:
            if name in self.by_name:
                return [self.by_name[name]]
            if name in self.providers:
                return self.providers[name]
        raise LookupError(f"not installed: {' | '.join(names)}")
