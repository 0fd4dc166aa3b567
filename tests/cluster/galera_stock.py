"""The articles of several owners in a cluster of MariaDB, and a note of every save."""

import galera  # noqa: F401  finds the modules of the other tests
from shops import MariaDbShop

TABLES = """
CREATE TABLE Articles (ID INTEGER AUTO_INCREMENT PRIMARY KEY, Owner INTEGER NOT NULL, Name VARCHAR(40) NOT NULL UNIQUE,
                       Amount INTEGER, Note TEXT, Views INTEGER) COLLATE utf8mb4_bin;
CREATE TABLE Saves (ID INTEGER AUTO_INCREMENT PRIMARY KEY, Action VARCHAR(6) NOT NULL, Article INTEGER, Amount INTEGER);
INSERT INTO Articles (Owner, Name, Amount) SELECT o.seq, CONCAT('thing ', o.seq, ' ', n.seq), 0 - CAST(100 * o.seq + n.seq AS SIGNED)
FROM seq_1_to_4 o, seq_1_to_30 n ORDER BY n.seq, o.seq;
CREATE TRIGGER NoteInsert AFTER INSERT ON Articles FOR EACH ROW
  INSERT INTO Saves (Action, Article, Amount) VALUES ('INSERT', NEW.ID, NEW.Amount);
CREATE TRIGGER NoteUpdate AFTER UPDATE ON Articles FOR EACH ROW
  INSERT INTO Saves (Action, Article, Amount) VALUES ('UPDATE', NEW.ID, NEW.Amount);
CREATE TRIGGER NoteDelete AFTER DELETE ON Articles FOR EACH ROW
  INSERT INTO Saves (Action, Article, Amount) VALUES ('DELETE', OLD.ID, OLD.Amount);
"""


class GaleraStock(MariaDbShop):
    """`server` is the node that is asked; any will do, for a node that is asked has the changes of all others."""

    def __init__(self, folder, cluster):
        super().__init__(folder, cluster.nodes[0])
        self.ask(TABLES)

    def articles(self, owner):
        rows = self.rows(f"SELECT ID, Name, Amount FROM Articles WHERE Owner = {owner} ORDER BY ID")
        return [[int(number), name, int(amount)] for number, name, amount in rows]

    def saves(self):
        return [(action, int(article), int(amount))
                for action, article, amount in self.rows("SELECT Action, Article, Amount FROM Saves")]
