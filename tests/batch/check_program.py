#!/usr/bin/env python3
"""velta-batch as a program: what it reads, writes and says, and how it ends.

  check_program.py VELTA-BATCH
"""

import json
import os
import pathlib
import pty
import re
import resource
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import unittest

PROGRAM = ""
HEADER = "cislo;splatnost;zaplaceno;castka;druh;sazba\n"
HEADER_OUT = HEADER.rstrip() + ";dny;regim;sazba_pouzita;urok;celkem;chyba\n"
ROW = "1;10.3.2005;20.6.2005;10000;diskont;"
ROW_OUT = ROW + ";102;Dle Diskontní sazby ČNB;2,5;69,90;10069,90;\n"
ROW += "\n"


def run(*arguments, stdin="", **how):
    return subprocess.run(
        [PROGRAM, *arguments], input=stdin, capture_output=True, encoding="utf-8", check=False, timeout=300, **how
    )


class Program(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def file(self, text, name="faktury.csv", encoding="utf-8"):
        path = self.folder / name
        path.write_bytes(text.encode(encoding))
        return str(path)

    def expect(self, done, status, stdout, stderr):
        self.assertEqual((done.returncode, done.stdout, done.stderr), (status, stdout, stderr))

    def test_file_and_standard_input(self):
        for done in (run(self.file(HEADER + ROW)), run(stdin=HEADER + ROW), run("-", stdin=HEADER + ROW)):
            self.expect(done, 0, HEADER_OUT + ROW_OUT, "")

    def test_options(self):
        done = run("--zaokrouhlit", "koruny", "--podrobne", "--vlaken", "1", self.file(HEADER + ROW))
        self.expect(
            done,
            0,
            HEADER_OUT.replace(";dny", ";od;do;dny")
            + ROW.rstrip()
            + ";10.3.2005;20.6.2005;102;Dle Diskontní sazby ČNB;2,5;70,00;10070,00;\n",
            "",
        )

    def test_json_lines(self):
        text = HEADER + '"a;""b""\nc";10.3.2005;20.6.2005;1000,50;diskont;\n' + "2;x;;;;\n"
        done = run("--format", "jsonl", stdin=text)
        self.assertEqual(done.returncode, 1)
        first, second = [json.loads(line) for line in done.stdout.splitlines()]
        self.assertEqual(first["cislo"], 'a;"b"\nc')
        self.assertEqual(first["castka"], "1000,50")
        self.assertEqual((first["dny"], first["sazba_pouzita"]), (102, 2.5))
        self.assertEqual((first["urok"], first["celkem"], first["chyba"]), (7.0, 1007.5, None))
        self.assertEqual(second["urok"], None)
        self.assertIn("splatnost", second["chyba"])

    def test_rows_that_cannot_be_computed(self):
        done = run(self.file(HEADER + "7;kdysi;20.6.2005;1;diskont;\n" + ROW))
        reason = "splatnost: Datum je chybně zadáno, zadejte je například takto: 31.12.2005"
        self.expect(
            done,
            1,
            HEADER_OUT + "7;kdysi;20.6.2005;1;diskont;;;;;;;" + reason + "\n" + ROW_OUT,
            "velta-batch: nelze spočítat řádků: 1 z 2, důvod je ve sloupci chyba\n",
        )

    def test_files_that_cannot_be_read(self):
        missing = str(self.folder / "neni.csv")
        self.expect(run(missing), 2, "", f"velta-batch: {missing}: Soubor nebyl nalezen\n")
        self.expect(run(str(self.folder)), 2, "", f"velta-batch: {self.folder}: je to složka, ne soubor\n")
        empty = self.file("", "prazdny.csv")
        self.expect(run(empty), 2, "", f"velta-batch: {empty}: soubor je prázdný\n")
        self.expect(run(), 2, "", "velta-batch: standardní vstup: soubor je prázdný\n")
        other = self.file("a;b\n1;2\n")
        told = f"velta-batch: {other}:1: v hlavičce chybí: splatnost, zaplaceno, castka, druh\n"
        self.expect(run(other), 2, "", told)
        quote = self.file(HEADER + '1;"2\n3\n')
        told = f"velta-batch: {quote}:2: uvozovky, které zde začínají, nikde nekončí\n"
        self.expect(run(quote), 2, "", told)
        windows = self.file(HEADER + ROW + "2;10.3.2005;20.6.2005;10000;% ročně;8\n", encoding="cp1250")
        told = "text není v UTF-8; uložte soubor znovu a zvolte znakovou sadu Unicode (UTF-8)"
        self.expect(run(windows), 2, "", f"velta-batch: {windows}:3: {told}\n")

    @unittest.skipIf(os.geteuid() == 0, "root may read everything")
    def test_a_file_without_permission(self):
        secret = self.file(HEADER)
        os.chmod(secret, 0)
        self.expect(run(secret), 2, "", f"velta-batch: {secret}: Přístup odepřen\n")

    def test_tables(self):
        data = pathlib.Path(PROGRAM).parent
        for present in ("cnb.dat", "repo.dat"):
            folder = self.folder / present
            folder.mkdir()
            shutil.copy(data / present, folder)
            other = "repo.dat" if present == "cnb.dat" else "cnb.dat"
            done = run("--sazby", str(folder), stdin=HEADER + ROW)
            self.expect(done, 2, "", f"velta-batch: {folder}/{other}: tabulka sazeb chybí\n")
        folder = self.folder / "cnb.dat"
        (folder / "repo.dat").write_text("0101200x2,50\r\n")
        done = run("--sazby", str(folder), stdin=HEADER + ROW)
        told = "tabulky sazeb nelze přečíst (Neshoda typů); zkontroluje je velta-check-rates"
        self.expect(done, 2, "", f"velta-batch: {folder}: {told}\n")
        # Others than the program's are taken.
        (folder / "cnb.dat").write_text("01.01.2005         " + " " * 20 + "2,00" + " " * 17 + "4,00\r\n")
        (folder / "repo.dat").write_text("010120052,50\r\n010720051,75\r\n")
        done = run("--sazby", str(folder), stdin=HEADER + ROW)
        self.expect(done, 0, HEADER_OUT + ROW_OUT.replace("2,5;69,90;10069,90", "4;111,80;10111,80"), "")

    def test_the_example_of_the_document(self):
        document = pathlib.Path(__file__).resolve().parents[2] / "docs" / "BATCH.md"
        blocks = re.findall(r"(?:^    cislo;.*\n)(?:^    .*\n)+", document.read_text(encoding="utf-8"), re.MULTILINE)
        given, becomes = [re.sub("^    ", "", block, flags=re.MULTILINE) for block in blocks]
        self.assertEqual(run(stdin=given).stdout, becomes)

    def test_usage(self):
        done = run("--rychle")
        told = "velta-batch: neočekávaný argument --rychle\nVolby programu vypíše velta-batch --help\n"
        self.expect(done, 2, "", told)
        done = run("--help")
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        self.assertIn("--zaokrouhlit", done.stdout)
        self.assertRegex(run("--version").stdout, r"^velta-batch \d+\.\d+\.\d+\n$")

    def test_a_full_disk(self):
        with open("/dev/full", "w", encoding="utf-8") as full:
            for rows in (1, 50000):
                done = subprocess.run(
                    [PROGRAM], input=HEADER + ROW * rows, stdout=full, stderr=subprocess.PIPE, encoding="utf-8",
                    check=False,
                )
                told = "velta-batch: výstup nelze zapsat: na disku není místo\n"
                self.assertEqual((done.returncode, done.stderr), (2, told))

    def test_a_closed_pipe(self):
        path = self.file(HEADER + ROW * 200000)
        with subprocess.Popen([PROGRAM, path], stdout=subprocess.PIPE, stderr=subprocess.PIPE) as process:
            self.assertEqual(process.stdout.readline().decode(), HEADER_OUT)
            process.stdout.close()
            told = process.stderr.read().decode()
            self.assertEqual(process.wait(60), 2)
        self.assertEqual(told, "velta-batch: výstup nelze zapsat: program, který jej četl, skončil dřív\n")

    def test_no_output_at_all(self):
        done = subprocess.run(
            ["sh", "-c", '"$0" >&-', PROGRAM], input=HEADER + ROW, stderr=subprocess.PIPE, encoding="utf-8",
            check=False,
        )
        self.assertEqual(done.returncode, 2)
        self.assertIn("výstup nelze zapsat", done.stderr)

    def test_interrupted(self):
        for signal_number in (signal.SIGINT, signal.SIGTERM):
            read_end, write_end = os.pipe()
            with open(write_end, "wb") as writer, subprocess.Popen(
                [PROGRAM], stdin=read_end, stdout=subprocess.DEVNULL
            ) as process:
                os.close(read_end)
                writer.write((HEADER + ROW * 20000).encode())
                writer.flush()
                time.sleep(0.2)
                self.assertIsNone(process.poll(), "it waits for more")
                process.send_signal(signal_number)
                self.assertEqual(process.wait(5), -signal_number)

    def test_progress_on_a_terminal_alone(self):
        text = (HEADER + ROW * 20000).encode()
        terminal, end = pty.openpty()
        with subprocess.Popen([PROGRAM], stdin=subprocess.PIPE, stdout=subprocess.DEVNULL, stderr=end) as process:
            os.close(end)
            process.stdin.write(text)
            process.stdin.flush()
            time.sleep(1.5)
            process.stdin.write(ROW.encode() * 20000)
            process.stdin.close()
            told = b""
            try:
                while piece := os.read(terminal, 1000):
                    told += piece
            except OSError:  # the terminal's other end is closed
                pass
            self.assertEqual(process.wait(60), 0)
        os.close(terminal)
        self.assertRegex(told.decode(), r"spočítáno řádků: \d+")
        self.assertTrue(told.decode().endswith("\r\x1b[K"), "and the line is taken away")

    def test_threads_give_the_same_bytes(self):
        rows = [HEADER.replace("cislo", "faktura").replace("castka", "dluh;castka")]
        for i in range(60000):
            invoice = f"F{i // 4}" if i % 3 else ""
            kind = ("repo", "zakonna", '"% ročně"', "diskont", "nic")[i // 4 % 5]
            rows.append(f"{invoice};{1 + i // 4 % 28}.3.2006;1.5.2009;90000;{i + 1},50;{kind};8\n")
        path = self.file("".join(rows))
        one = run("--vlaken", "1", path)
        self.assertEqual(one.returncode, 1)
        self.assertEqual(one.stdout.count("\n"), 60001)
        for threads in ("2", "3", "16"):
            self.assertEqual(run("--vlaken", threads, path).stdout, one.stdout)
        self.assertEqual(run(stdin="".join(rows)).stdout, one.stdout, "however the bytes come")

    def test_memory_does_not_grow_with_the_file(self):
        with subprocess.Popen(
            [PROGRAM, "--vlaken", "2"], stdin=subprocess.PIPE, stdout=subprocess.DEVNULL
        ) as process:

            def peak_after(rows):
                process.stdin.write(ROW.encode() * rows)
                process.stdin.flush()
                status = pathlib.Path(f"/proc/{process.pid}/status").read_text(encoding="utf-8")
                return int(re.search(r"VmHWM:\s*(\d+) kB", status)[1])

            process.stdin.write(HEADER.encode())
            few = peak_after(50000)
            many = peak_after(300000)
            process.stdin.close()
            self.assertEqual(process.wait(60), 0)
        self.assertLess(many, few * 1.1 + 1000, f"{few} and {many} KiB")

    def test_a_file_without_line_ends_does_not_fill_the_memory(self):
        # AddressSanitizer needs terabytes of addresses; there the file is only refused.
        sanitized = b"__asan_init" in pathlib.Path(PROGRAM).read_bytes()
        limit = resource.RLIM_INFINITY if sanitized else 400 << 20
        done = subprocess.run(
            [PROGRAM, "/dev/zero"], capture_output=True, encoding="utf-8", check=False, timeout=60,
            preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_AS, (limit, limit)),
        )
        self.expect(done, 2, "", "velta-batch: /dev/zero:1: řádek je příliš dlouhý\n")

    def test_several_processes_under_gnu_parallel(self):
        if shutil.which("parallel") is None:
            self.skipTest("there is no GNU parallel")
        row = "{};1.1.2006;1.5.2009;{},50;repo;\n"
        path = self.file(HEADER + "".join(row.format(i, i + 1) for i in range(50000)))
        one = run(path)
        several = subprocess.run(
            f"parallel --will-cite --pipe --keep-order --header : --block 300k -j 3 "
            f"'{PROGRAM} --desetinny carka | if [ {{#}} = 1 ]; then cat; else tail -n +2; fi' <{path}",
            shell=True, capture_output=True, encoding="utf-8", check=False,
        )
        self.assertEqual(several.stderr, "")
        self.assertEqual(several.stdout, one.stdout)


if __name__ == "__main__":
    PROGRAM = sys.argv.pop(1)
    unittest.main()
