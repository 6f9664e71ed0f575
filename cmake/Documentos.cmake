# The documents, in the folders where they lead to each other.
set(documentos ${CMAKE_INSTALL_DATAROOTDIR}/doc/vorplex)
install(FILES README.md LEIAME.md SECURITY.md CHANGELOG.md DESTINATION ${documentos})
install(DIRECTORY docs DESTINATION ${documentos})
install(FILES examples/kernel.cfg DESTINATION ${documentos}/examples)
install(FILES LICENSE DESTINATION ${documentos} COMPONENT licenca)
