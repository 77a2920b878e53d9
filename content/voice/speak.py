#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Speaks one line as Plim.

    speak.py LANGUAGE LINE.txt OUT.wav

English is spoken by Festival, every other language by espeak-ng; README.md tells why.
"""
import pathlib
import shutil
import subprocess
import sys
import tempfile

sys.path.insert(0, str(pathlib.Path(__file__).parent.parent / "audio"))
import sound_kit

LOUDNESS = -18  # LUFS
YOUNGER = 1.18  # How much shorter than its speaker's a voice's throat is made.

FESTIVAL = """(begin
    (voice_cmu_us_slt_arctic_hts)
    (set! hts_engine_params (append hts_engine_params (list '("-r" 0.76)))))"""

# Female variants of espeak-ng, slow and not too deep; the rest of the way to Plim is YOUNGER.
ESPEAK = ["-s", "118", "-p", "52", "-g", "2"]


def run(command, package):
    if shutil.which(command[0]) is None:
        sys.exit(f"{command[0]} is missing; install it with: apt-get install {package}")
    done = subprocess.run(command, capture_output=True, text=True, check=False)
    if done.returncode != 0:
        sys.exit(f"{command[0]} failed: {done.stderr.strip()} (its packages: {package})")


def say(language, line, wave):
    if language == "en":
        run(["text2wave", "-eval", FESTIVAL, str(line), "-o", str(wave)],
            "festival festlex-cmu festlex-poslex festvox-us-slt-hts")
    else:
        run(["espeak-ng", "-v", language + "+f2", *ESPEAK, "-f", str(line), "-w", str(wave)],
            "espeak-ng")


def main():
    language, line, out = sys.argv[1], pathlib.Path(sys.argv[2]), pathlib.Path(sys.argv[3])
    with tempfile.TemporaryDirectory() as folder:
        spoken, young = pathlib.Path(folder, "spoken.wav"), pathlib.Path(folder, "young.wav")
        say(language, line, spoken)
        # -R and -D: the same line gives the same file every time.
        run(["sox", "-R", "-D", str(spoken), "-b", "16", str(young), "gain", "-6", "speed",
             str(YOUNGER), "rate", "-v", str(sound_kit.RATE), "highpass", "90", "treble", "3",
             "3500"], "sox")
        sound = sound_kit.trim(sound_kit.read_wave(young))
    if not sound:
        sys.exit(f"{line}: nothing was heard of this line")
    sound_kit.write_wave(out, sound_kit.level(sound, LOUDNESS))


if __name__ == "__main__":
    main()
