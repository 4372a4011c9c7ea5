#!/usr/bin/env python3
"""A speech-dispatcher that says nothing: it speaks SSIP, and writes down what it is asked for.

    ssip_recorder.py SOCKET LOG [--hang-after N] [--close-after N] [--spoken SECONDS | --waves FOLDER]

LOG gets a line of JSON for each command: {"time": seconds of the monotonic clock, "client": number, "command": ...}, with
the text of a SPEAK as {"say": ...}. After N texts it can stop to answer, or close its connections and its socket. A text
takes SECONDS to be spoken, none if not told otherwise; then the client gets its END, where it asked for such events. With FOLDER,
espeak-ng makes a wave of each text there, one after the other, and a text takes as long as its wave; lines of LOG then tell
when it began to sound, as {"event": "sounding", "message": ..., "wave": file, "length": seconds}, and when that was over.
"""

import argparse
import asyncio
import json
import os
import pathlib
import sys
import time
import wave

SLOWEST, USUAL, FASTEST = 80, 175, 390  # words a minute at the rates -100, 0 and 100
VOICES = ["English (America)\ten-us\tnone", "English (America)+Annie\ten-us\tAnnie", "German\tde\tnone",
          "English (Great Britain)\ten-gb\tnone"]
SETTINGS = {"RATE": "0", "PITCH": "0", "VOLUME": "100", "LANGUAGE": "en", "OUTPUT_MODULE": "recorder"}


class Recorder:
    def __init__(self, options):
        self.options = options
        self.log = open(options.log, "a", encoding="utf-8", buffering=1)
        self.texts = 0
        self.clients = 0
        self.message = 20
        self.server = None
        self.writers = set()

    def write_down(self, client, **what):
        self.log.write(json.dumps({"time": time.monotonic(), "client": client, **what}) + "\n")

    def hangs(self):
        return self.options.hang_after is not None and self.texts >= self.options.hang_after

    async def serve(self, reader, writer):
        self.clients += 1
        connection = Connection(self, self.clients, reader, writer)
        self.writers.add(writer)
        self.write_down(connection.number, event="connected")
        try:
            await connection.run()
        except (ConnectionError, asyncio.IncompleteReadError):
            pass
        finally:
            self.writers.discard(writer)
            self.write_down(connection.number, event="disconnected")
            writer.close()

    def text_taken(self):
        self.texts += 1
        if self.options.close_after is not None and self.texts >= self.options.close_after:
            os._exit(0)

    async def run(self):
        if os.path.exists(self.options.socket):
            os.unlink(self.options.socket)
        self.server = await asyncio.start_unix_server(self.serve, self.options.socket, limit=1 << 20)
        print("ready", flush=True)
        await self.server.serve_forever()


class Connection:
    def __init__(self, recorder, number, reader, writer):
        self.recorder = recorder
        self.number = number
        self.reader = reader
        self.writer = writer
        self.events = set()
        self.rate = 0
        self.sounding = {}  # the tasks that will tell that a text has been spoken, by the text's number

    async def run(self):
        while True:
            line = await self.line()
            if line is None:
                return
            if self.recorder.hangs():
                await asyncio.Event().wait()
            await self.obey(line)

    async def line(self):
        raw = await self.reader.readline()
        return raw.decode("utf-8", "replace").rstrip("\r\n") if raw else None

    def answer(self, *lines):
        self.writer.write("".join(line + "\r\n" for line in lines).encode("utf-8"))

    async def obey(self, line):
        words = line.upper().split()
        if words[:1] == ["SPEAK"]:
            return await self.speak()
        if words[:1] in (["CHAR"], ["KEY"]) and len(words) == 2:
            return self.take(line.split()[1])
        self.recorder.write_down(self.number, command=line)
        if words[:2] == ["CANCEL", "SELF"]:
            self.cut_off()
            self.answer("210 OK CANCELED")
        elif words[:3] == ["SET", "SELF", "NOTIFICATION"] and words[4:] == ["ON"]:
            self.events.add(words[3])
            self.answer("220 OK NOTIFICATION SET")
        elif words[:1] == ["SET"]:
            if words[2:3] == ["RATE"]:
                self.rate = int(words[3])
            self.answer("299 OK SET")
        elif words[:2] == ["LIST", "SYNTHESIS_VOICES"]:
            self.answer(*("249-" + voice for voice in VOICES), "249 OK VOICE LIST SENT")
        elif words == ["LIST", "OUTPUT_MODULES"]:
            self.answer("250-recorder", "250 OK MODULE LIST SENT")
        elif words == ["HISTORY", "GET", "CLIENT_ID"]:
            self.answer(f"245-{self.number}", "245 OK CLIENT ID SENT")
        elif words[:1] == ["GET"] and words[1:] and words[1] in SETTINGS:
            self.answer("251-" + SETTINGS[words[1]], "251 OK GET RETURNED")
        else:
            self.answer("500 ERR INVALID COMMAND")

    async def speak(self):
        self.answer("230 OK RECEIVING DATA")
        lines = []
        while (line := await self.line()) != ".":
            if line is None:
                return
            lines.append(line[1:] if line.startswith("..") else line)
        self.take("\n".join(lines))

    def take(self, text):
        self.recorder.message += 1
        message = self.recorder.message
        self.recorder.write_down(self.number, say=text, message=message)
        self.recorder.text_taken()
        self.answer(f"225-{message}", "225 OK MESSAGE QUEUED")
        before = list(self.sounding.values())
        sound = self.sound_as_wave(message, text, before) if self.recorder.options.waves else self.sound(message)
        self.sounding[message] = asyncio.create_task(sound)

    async def sound(self, message):
        self.tell(701, "BEGIN", message)
        await asyncio.sleep(self.recorder.options.spoken)
        del self.sounding[message]
        self.tell(702, "END", message)

    async def sound_as_wave(self, message, text, before):
        if before:
            await asyncio.wait(before)
        path = self.recorder.options.waves / f"{message}.wav"
        length = await self.make_wave(path, text)
        self.recorder.write_down(self.number, event="sounding", message=message, wave=path.name, length=length)
        self.tell(701, "BEGIN", message)
        await asyncio.sleep(length)
        del self.sounding[message]
        self.recorder.write_down(self.number, event="spoken", message=message)
        self.tell(702, "END", message)

    async def make_wave(self, path, text):
        """Its length in seconds; a text in which espeak-ng finds no word has none."""
        speed = USUAL + (FASTEST - USUAL if self.rate > 0 else USUAL - SLOWEST) * self.rate // 100
        maker = await asyncio.create_subprocess_exec("espeak-ng", "-b", "1", "-z", "-s", str(speed), "-w", path, "--stdin",
                                                     stdin=asyncio.subprocess.PIPE)
        try:
            await maker.communicate(text.encode("utf-8"))
        except asyncio.CancelledError:
            maker.kill()
            raise
        if not path.exists():
            return 0
        with wave.open(str(path), "rb") as made:
            return made.getnframes() / made.getframerate()

    def cut_off(self):
        for message, task in list(self.sounding.items()):
            task.cancel()
            self.recorder.write_down(self.number, event="cut", message=message)
            self.tell(703, "CANCEL", message)
        self.sounding.clear()

    def tell(self, code, event, message):
        if event in self.events:
            name = "CANCELED" if event == "CANCEL" else event
            self.answer(f"{code}-{message}", f"{code}-{self.number}", f"{code} {name}")


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("socket")
    parser.add_argument("log")
    parser.add_argument("--hang-after", type=int)
    parser.add_argument("--close-after", type=int)
    parser.add_argument("--spoken", type=float, default=0)
    parser.add_argument("--waves", type=pathlib.Path)
    recorder = Recorder(parser.parse_args())
    try:
        asyncio.run(recorder.run())
    except KeyboardInterrupt:
        sys.exit(0)


if __name__ == "__main__":
    main()
