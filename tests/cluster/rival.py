"""Another client of PostgreSQL, who has changed an article and has not committed yet."""

import subprocess


class Rival:
    """A context; at its end the change stands."""

    def __init__(self, stock, article):
        command, environment = stock.client_command()
        self.process = subprocess.Popen(command, stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True, env=environment)
        self.process.stdin.write(f"BEGIN;\nUPDATE Articles SET Note = Note WHERE ID = {article};\n\\echo changed\n")

    def __enter__(self):
        self.process.stdin.flush()
        while "changed" not in self.process.stdout.readline():
            pass
        return self

    def __exit__(self, *_):
        self.process.stdin.write("COMMIT;\n")
        self.process.stdin.close()
        self.process.wait()
        self.process.stdout.close()
