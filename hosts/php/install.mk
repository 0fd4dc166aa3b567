# What `make install` brings besides the extension, for config.m4: what sites copy, and what editors read.

install: install-dralo-files
.PHONY: install-dralo-files

install-dralo-files:
	@echo "Installing theme, script and stub: $(INSTALL_ROOT)$(datadir)/dralo/"
	@$(mkinstalldirs) $(INSTALL_ROOT)$(datadir)/dralo/gfx
	@$(INSTALL_DATA) $(srcdir)/assets/dralo.css $(srcdir)/assets/dralo.js $(srcdir)/hosts/php/dralo.stub.php \
		$(INSTALL_ROOT)$(datadir)/dralo
	@$(INSTALL_DATA) $(srcdir)/assets/gfx/*.gif $(INSTALL_ROOT)$(datadir)/dralo/gfx
