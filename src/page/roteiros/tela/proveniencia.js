'use strict';
// From what the page was made, at its end.

{
  const {t, elemento} = vorplex;
  const p = JSON.parse(document.getElementById('proveniencia').textContent);

  const mostra = () => {
    const raiz = document.getElementById('origem');
    raiz.hidden = false;
    const campos = [[t('versao'), p.versao], [t('instrucoes'), p.instrucoes], [t('escala'), p.escala]];
    const cabeca = elemento('tr', {}, ...[t('nome'), t('arquivo'), t('soma'), t('data')].map((nome) =>
      elemento('th', {scope: 'col'}, nome)));
    const linhas = p.fotografias.map((f) => elemento('tr', {}, elemento('th', {scope: 'row'}, elemento('bdi', {}, f.nome)),
      elemento('td', {}, elemento('bdi', {}, f.arquivo)), elemento('td', {}, elemento('code', {}, f.soma)),
      elemento('td', {}, f.data)));
    raiz.append(
      elemento('p', {}, campos.map(([nome, valor]) => `${nome}: ${valor}`).join(' · ')),
      elemento('div', {class: 'rola', tabindex: 0, role: 'region', 'aria-label': t('proveniencia')},
        elemento('table', {}, elemento('thead', {}, cabeca), elemento('tbody', {}, ...linhas))),
      elemento('p', {}, 'kernel.cfg'), elemento('pre', {}, p.kernel),
      elemento('p', {}, t('comoRepetir')));
  };
  if (p !== null) mostra();
}
