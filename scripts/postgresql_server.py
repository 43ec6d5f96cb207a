"""Servers of one's own: a copy of the installed PostgreSQL with the extension in it, in a folder that
goes when the work is done. Nothing outside of it is written, and the servers listen on Unix sockets.

As root, the servers run as the user who is called in RUN_AS.
"""
import contextlib
import os
import pathlib
import pwd
import shutil
import subprocess
import tempfile
import time

RUN_AS = "postgres"
LEFT_OUT = shutil.ignore_patterns("bitcode", "pgxs", "man", "*.mo")


def as_user():
    """Arguments with which subprocess starts a program as an unprivileged user."""
    if os.getuid() != 0:
        return {}
    user = pwd.getpwnam(RUN_AS)
    return {"user": user.pw_uid, "group": user.pw_gid, "extra_groups": []}


def answer(*command):
    return subprocess.run(command, check=True, stdout=subprocess.PIPE, text=True).stdout.strip()


class Installation:
    """A copy of the server's files in which an extension may be installed."""

    def __init__(self, folder, build, pg_config="pg_config"):
        self.folder = pathlib.Path(folder)
        self.bin = self._copy(answer(pg_config, "--bindir"))
        self.lib = self._copy(answer(pg_config, "--pkglibdir"))
        self.share = self._copy(answer(pg_config, "--sharedir"))
        for component in "Runtime", "PostgreSQL":
            subprocess.run(["cmake", "--install", build, "--component", component], check=True,
                           env={**os.environ, "DESTDIR": str(self.folder)},
                           stdout=subprocess.DEVNULL)

    def _copy(self, folder):
        made = self.folder / folder.lstrip("/")
        shutil.copytree(folder, made, ignore=LEFT_OUT, dirs_exist_ok=True)
        return made

    def run(self, program, *arguments, **options):
        return subprocess.run([self.bin / program, *map(str, arguments)], check=True,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                              cwd=self.folder, **{**as_user(), **options}).stdout


class Server:
    """A running server; `log` is the path of what it says."""

    def __init__(self, installation, name, port, settings=()):
        self.installation, self.port = installation, port
        self.sockets = installation.folder
        self.data = installation.folder / name
        self.log = installation.folder / f"{name}.log"
        self.data.mkdir(mode=0o700)
        if as_user():
            shutil.chown(self.data, RUN_AS, RUN_AS)
        installation.run("initdb", "-D", self.data, "-U", "owner", "-A", "trust", "-E", "UTF8",
                         "--locale=C.UTF-8", "--no-sync")
        lines = ["listen_addresses = ''", f"port = {port}", "fsync = off",
                 f"unix_socket_directories = '{self.sockets}'", *settings]
        with open(self.data / "postgresql.auto.conf", "w", encoding="utf-8") as file:
            file.write("\n".join(lines) + "\n")
        self.start()

    def start(self):
        with open(self.log, "ab") as log:
            self.process = subprocess.Popen([self.installation.bin / "postgres", "-D", self.data],
                                            stdout=log, stderr=log, cwd=self.installation.folder,
                                            **as_user())
        for _ in range(1200):
            if self.process.poll() is not None:
                break
            if subprocess.run([self.installation.bin / "pg_isready", "-q", "-h", self.sockets, "-p",
                               str(self.port)], check=False).returncode == 0:
                return
            time.sleep(0.05)
        raise SystemExit(f"no server:\n{self.log.read_text()}")

    def stop(self):
        self.process.terminate()  # a smart shutdown would wait for connections
        with contextlib.suppress(subprocess.TimeoutExpired):
            self.process.wait(5)
            return
        self.process.send_signal(2)
        self.process.wait(60)

    def where(self, database="postgres", user="owner"):
        return {"host": str(self.sockets), "port": self.port, "dbname": database, "user": user}

    def environment(self, database="postgres"):
        """The variables with which libpq finds this server, and the shell its programs."""
        return {"PGHOST": str(self.sockets), "PGPORT": str(self.port), "PGUSER": "owner",
                "PGDATABASE": database, "PATH": f"{self.installation.bin}:{os.environ['PATH']}"}

    def connect(self, database="postgres", user="owner"):
        import psycopg2  # which the demo does not need
        connection = psycopg2.connect(**self.where(database, user))
        connection.autocommit = True
        return connection


@contextlib.contextmanager
def installation(build):
    with tempfile.TemporaryDirectory(prefix="trelvonunits-") as folder:
        os.chmod(folder, 0o777)
        yield Installation(folder, build)


@contextlib.contextmanager
def servers(build, *all_settings):
    """As many servers as there are settings, each a list of lines."""
    with installation(build) as installed, contextlib.ExitStack() as running:
        made = []
        for number, settings in enumerate(all_settings):
            made.append(Server(installed, f"data{number}", 54300 + number, settings))
            running.callback(made[-1].stop)
        yield made


def rows(connection, statement, values=None):
    with connection.cursor() as cursor:
        cursor.execute(statement, values)
        return cursor.fetchall() if cursor.description else []
