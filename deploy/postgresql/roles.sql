-- Run in the site's database by its owner. Passwords: \password shop_pages and \password shop_reader in psql.

REVOKE ALL ON SCHEMA public FROM PUBLIC;

-- For pages that save.
CREATE ROLE shop_pages LOGIN;
GRANT USAGE ON SCHEMA public TO shop_pages;
GRANT SELECT, INSERT, UPDATE, DELETE ON ALL TABLES IN SCHEMA public TO shop_pages;
GRANT USAGE ON ALL SEQUENCES IN SCHEMA public TO shop_pages;

-- For pages that only show.
CREATE ROLE shop_reader LOGIN;
GRANT USAGE ON SCHEMA public TO shop_reader;
GRANT SELECT ON ALL TABLES IN SCHEMA public TO shop_reader;
ALTER ROLE shop_reader SET default_transaction_read_only = on;
