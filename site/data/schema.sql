-- Tables of the example shop.

CREATE TABLE Countries (
  Code VARCHAR(2) NOT NULL PRIMARY KEY,
  Name VARCHAR(40) NOT NULL,
  OwnName VARCHAR(40) NOT NULL,
  Inhabitants BIGINT NOT NULL,
  AreaKm2 INTEGER NOT NULL,
  Currency VARCHAR(3) NOT NULL,
  FirstDelivery SMALLINT NOT NULL
);

CREATE TABLE Categories (
  ID INTEGER PRIMARY KEY,
  Name VARCHAR(40) NOT NULL,
  Description TEXT
);

CREATE TABLE Employees (
  ID INTEGER PRIMARY KEY,
  GivenName VARCHAR(40) NOT NULL,
  FamilyName VARCHAR(40) NOT NULL,
  Title VARCHAR(60) NOT NULL,
  ReportsTo INTEGER REFERENCES Employees (ID),
  BornOn DATE,
  HiredOn DATE NOT NULL,
  StartsAt TIME,
  Salary MONEY,
  FullTime BOOLEAN NOT NULL,
  Email VARCHAR(60),
  Photo BLOB,
  Notes TEXT
);

CREATE TABLE Customers (
  ID INTEGER PRIMARY KEY,
  Company VARCHAR(60) NOT NULL,
  Contact VARCHAR(60),
  Street VARCHAR(60),
  PostalCode VARCHAR(12),
  City VARCHAR(40) NOT NULL,
  Country VARCHAR(2) NOT NULL REFERENCES Countries (Code),
  Phone VARCHAR(24),
  Email VARCHAR(60),
  CreditLimit DECIMAL(10,2),
  Newsletter BOOLEAN NOT NULL,
  Since DATE NOT NULL,
  LastVisit DATETIME,
  Notes TEXT,
  CONSTRAINT "at most 20000 signs for a customer"
    CHECK (length(printf('%s%s%s%s%s%s%s%s', Company, Contact, Street, PostalCode, City, Phone, Email, Notes)) <= 20000)
);

CREATE TABLE Products (
  ID INTEGER PRIMARY KEY,
  Category INTEGER NOT NULL REFERENCES Categories (ID),
  Name NVARCHAR(60) NOT NULL,
  Unit VARCHAR(20),
  Price MONEY NOT NULL,
  Weight REAL,
  InStock SMALLINT NOT NULL,
  ReorderAt SMALLINT,
  Discontinued BOOLEAN NOT NULL,
  SoldSince DATE,
  Description TEXT,
  Picture BLOB
);

CREATE TABLE Orders (
  ID INTEGER PRIMARY KEY,
  Customer INTEGER NOT NULL REFERENCES Customers (ID),
  Employee INTEGER REFERENCES Employees (ID),
  OrderedAt DATETIME NOT NULL,
  ShippedOn DATE,
  Freight DECIMAL(8,2) NOT NULL,
  Paid BOOLEAN NOT NULL,
  Remark TEXT
);

CREATE TABLE OrderLines (
  OrderID INTEGER NOT NULL REFERENCES Orders (ID),
  Line SMALLINT NOT NULL,
  Product INTEGER NOT NULL REFERENCES Products (ID),
  Quantity SMALLINT NOT NULL,
  UnitPrice MONEY NOT NULL,
  Discount REAL,
  PRIMARY KEY (OrderID, Line)
);

CREATE TABLE Reminders (
  ID INTEGER PRIMARY KEY,
  Task VARCHAR(80) NOT NULL,
  DueOn DATE,
  Employee INTEGER REFERENCES Employees (ID),
  Hours DECIMAL(5,2),
  Done BOOLEAN NOT NULL,
  CONSTRAINT "at most 200 signs for a reminder" CHECK (length(Task) <= 200)
);

CREATE INDEX CustomersByCountry ON Customers (Country, City);
CREATE INDEX ProductsByCategory ON Products (Category);
CREATE INDEX OrdersByCustomer ON Orders (Customer);
CREATE INDEX OrdersByTime ON Orders (OrderedAt);
CREATE INDEX OrderLinesByProduct ON OrderLines (Product);

CREATE VIEW OrderTotals AS
SELECT Orders.ID, Orders.OrderedAt, Customers.Company, Customers.City, COUNT(*) AS Lines,
       ROUND(SUM(Quantity * UnitPrice * (1 - COALESCE(Discount, 0))) + Freight, 2) AS Total
FROM Orders JOIN Customers ON Customers.ID = Orders.Customer JOIN OrderLines ON OrderLines.OrderID = Orders.ID
GROUP BY Orders.ID;

CREATE VIEW ProductSales AS
SELECT Products.ID, Products.Name, Categories.Name AS Category, SUM(Quantity) AS Sold,
       ROUND(SUM(Quantity * UnitPrice * (1 - COALESCE(Discount, 0))), 2) AS Turnover
FROM Products JOIN Categories ON Categories.ID = Products.Category JOIN OrderLines ON OrderLines.Product = Products.ID
GROUP BY Products.ID;

-- Visitors of a public site may add records: the shop does not grow for ever.

CREATE TRIGGER CustomersAreLimited BEFORE INSERT ON Customers WHEN (SELECT COUNT(*) FROM Customers) >= 500
BEGIN
  SELECT RAISE(ABORT, 'There is no room for more than 500 customers.');
END;

CREATE TRIGGER OrderLinesAreLimited BEFORE INSERT ON OrderLines
WHEN (SELECT COUNT(*) FROM OrderLines WHERE OrderID = NEW.OrderID) >= 20
BEGIN
  SELECT RAISE(ABORT, 'An order has no more than 20 lines.');
END;

CREATE TRIGGER RemindersAreLimited BEFORE INSERT ON Reminders WHEN (SELECT COUNT(*) FROM Reminders) >= 100
BEGIN
  SELECT RAISE(ABORT, 'There is no room for more than 100 reminders.');
END;

CREATE TRIGGER CustomersWithOrdersStay BEFORE DELETE ON Customers
WHEN EXISTS (SELECT 1 FROM Orders WHERE Customer = OLD.ID)
BEGIN
  SELECT RAISE(ABORT, 'A customer with orders cannot be deleted.');
END;
