// What hardened pages leave to a script, which they do without where it is not loaded:
// - a button with data-confirm asks before it posts; the yes gives it the name in data-confirmed;
// - a select with data-submit posts its form as soon as another option is chosen.
'use strict';

document.addEventListener('click', (event) => {
  const button = event.target instanceof Element ? event.target.closest('[data-confirm]') : null;
  if (button === null) return;
  if (!window.confirm(button.dataset.confirm)) {
    event.preventDefault();
  } else if (button.dataset.confirmed !== undefined) {
    button.name = button.dataset.confirmed;
  }
});

document.addEventListener('change', (event) => {
  const select = event.target;
  if (!(select instanceof HTMLSelectElement) || select.dataset.submit === undefined) return;
  // Not select.form.submit: an input of the page may be called so.
  HTMLFormElement.prototype.submit.call(select.form);
});
